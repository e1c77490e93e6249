// SPDX-License-Identifier: MIT
// The pointer on the panes: position display and dispatch of clicks to the measuring modes.
#pragma once

namespace sylvomex {

struct Workspace;

void Picture1_MouseMove(Workspace& w, int pane, double px, double py);
void Form_MouseMove(Workspace& w);

/// button: kLeftButton or kRightButton; shift: mask of kShift, kCtrl, kAlt, compared as a whole.
void Picture1_MouseDown(Workspace& w, int pane, int button, int shift, double px, double py);

}  // namespace sylvomex
