// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Draws a 100 m grid and the trees of a plot text file on every pane, lists every tree, and
/// reports the differences between the raster model and the plot's ground heights.
void Plot_Field_Plot_Data(Workspace& w);

}  // namespace sylvomex
