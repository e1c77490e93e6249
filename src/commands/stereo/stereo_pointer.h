// SPDX-License-Identifier: MIT
// The pointer and the keys over the anaglyph picture. Without an open pair they do nothing.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Brings the mark under the pointer, at its height. Services events.
void Form5_Picture1_MouseMove(Workspace& w, double px, double py);

/// "U" and "D" move the mark up and down by a centimetre.
void Form5_Picture1_KeyDown(Workspace& w, int key_code);

/// Keeps the mark as a measured point and brings it to the middle of the picture.
void Form5_Picture1_DblClick(Workspace& w);

}  // namespace sylvomex
