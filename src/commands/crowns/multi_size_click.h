// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Finds the height of the tree top along the ray of the observation in a pane, from 4.5 m below
/// the solution to 4.5 m above it, by the resized crown templates of all ticked images, and puts
/// the solution there.
///
/// RunTimeErrors: a missing template of a ticked image (FileNotFound), a band that leaves the
/// raster or a window that leaves the band and a run without ticked images (SubscriptOutOfRange).
void Multi_Size_Click(Workspace& w, int pane);

}  // namespace sylvomex
