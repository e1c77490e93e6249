// SPDX-License-Identifier: MIT
// The height graphs: heights of the three classes, and the raster model against the field-measured
// ground.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Heights of matched and omitted trees and of unmatched clusters, one square each in its column
/// of 1 m. A cluster's height is above the raster model or, without one, above the plot centre.
/// Heights below 0 and above 29 m fall into the first and the last column.
void Draw_Class_Heights(const Workspace& w, Picture& pane);

/// Raster elevation minus field-measured ground, tree by tree.
void Draw_Dem_Errors(const Workspace& w, Picture& pane);

/// Raster elevation over field-measured ground.
void Draw_Elevations(const Workspace& w, Picture& pane);

}  // namespace sylvomex
