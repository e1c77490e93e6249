// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Side of the square panes for a client area and a number of images, a multiple of 4. 0 for
/// no image or more than nine.
int Pane_Side(double client_width, double client_height, int image_count);

/// RunTimeError(OutOfMemory) when the memory has no room for the pictures of that many panes and
/// for one more in the making.
void Require_Room_For_Panes(int side, int panes);

/// Sets PaneWidth and PaneHeight; unchanged for no image or more than nine, and for a side beyond
/// 16 bits: RunTimeError(Overflow).
void Compute_Pane_Size(Workspace& w);

/// Places and shows the panes of the loaded images with their controls and hides the others.
void Lay_Out_Panes(Workspace& w);

}  // namespace sylvomex
