// SPDX-License-Identifier: MIT
// The pointer and the keys over the anaglyph picture. Without an open pair they do nothing.
#pragma once

namespace sylvomex {

struct Workspace;

/// Moves the mark to the pointer at the mark's height. Services events.
void Form5_Picture1_MouseMove(Workspace& w, double px, double py);

/// "U" and "D" move the mark up and down by a centimetre.
void Form5_Picture1_KeyDown(Workspace& w, int key_code);

/// Records the mark as a measured point and recentres on it.
void Form5_Picture1_DblClick(Workspace& w);

}  // namespace sylvomex
