// SPDX-License-Identifier: MIT
// Wheel and drag on the panes: the views move, the observations stay. Neither does anything while a
// crown width has its first end only, whose mark is a pane position.
#pragma once

namespace sylvomex {

struct Workspace;

/// Zooms the pane about px, py, one step a notch; with kCtrl all panes.
void Picture1_Wheel(Workspace& w, int pane, int notches, int shift, double px, double py);

/// Drags the pane's picture by dx, dy pane pixels; with kShift the other panes follow.
void Picture1_Pan(Workspace& w, int pane, int shift, double dx, double dy);

}  // namespace sylvomex
