// SPDX-License-Identifier: MIT
#pragma once

#include "commands/crowns/fit_next_crown.h"

namespace sylvomex {

/// Fits crowns to the 2006 lidar echoes within 25 m of the solution, in X and in Y, and draws
/// them on the panes.
void Image_Lidar_Allometry_Algorithm(Workspace& w);

/// Takes the unused echoes of the upper crown that lie inside the fitted profile into the tree's
/// count and marks them, in white for a poor fit, then draws the rings of its lower edge.
void Draw_Crown(Workspace& w, CrownEchoes& echoes, const FittedTree& tree);

}  // namespace sylvomex
