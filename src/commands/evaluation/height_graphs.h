// SPDX-License-Identifier: MIT
// The graphs of heights: those of the three classes, and the raster model against the ground that
// the field crew measured.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Heights of matched and omitted trees and of clusters without a tree, one brick each over its
/// metre of height. A cluster stands above the raster model, without one above the plot centre.
/// Heights below 0 and above 29 m stand in the first and the last column.
void Draw_Class_Heights(const Workspace& w, Picture& pane);

/// Raster elevation less measured ground, tree by tree.
void Draw_Dem_Errors(const Workspace& w, Picture& pane);

/// Raster elevation over measured ground.
void Draw_Elevations(const Workspace& w, Picture& pane);

}  // namespace sylvomex
