// SPDX-License-Identifier: MIT
// Taking images out of the block.
#pragma once

namespace sylvomex {

struct Workspace;

/// Asks for an image by its index, 100 for all of them, and takes it out. The images behind it
/// move down with their views; comment and related rasters stay with their index.
void Remove_an_image(Workspace& w);

/// Takes an image out of the tables; the images behind it move down. Panes stay as they are.
void Take_Out_Image(Workspace& w, int image);

/// Empties the block and drops the solution.
void Remove_All_Images(Workspace& w);

}  // namespace sylvomex
