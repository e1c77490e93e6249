// SPDX-License-Identifier: MIT
// The graphs of the matched trees' errors, one per pane. A statistic that cannot be computed is a
// RunTimeError(DivisionByZero).
#pragma once

#include "evaluation/match_statistics.h"
#include "state/workspace.h"

namespace sylvomex {

/// Z errors over tree heights with their regression line and the matched share of volume.
void Draw_Z_Error_Graph(Workspace& w, Picture& pane);

/// Plan of the plot with a vector from each matched tree to its cluster.
void Draw_XY_Error_Graph(const Workspace& w, Picture& pane);

/// Plan of the plot with a mark at each matched tree; its size grows with the magnitude of the Z
/// error.
void Draw_Z_Error_Plan(const Workspace& w, Picture& pane);

}  // namespace sylvomex
