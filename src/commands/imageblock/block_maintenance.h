// SPDX-License-Identifier: MIT
// Removal of images from the block.
#pragma once

namespace sylvomex {

struct Workspace;

/// Asks for the index of an image, or 100 for all, and removes it. The later images move down with
/// their views; comment and related rasters stay with their index.
void Remove_an_image(Workspace& w);

/// Removes an image from the tables; the later images move down. Panes do not change.
void Take_Out_Image(Workspace& w, int image);

/// Empties the block and invalidates the solution.
void Remove_All_Images(Workspace& w);

}  // namespace sylvomex
