// SPDX-License-Identifier: MIT
// The graphs of the matched trees' errors, one a pane. What their statistics cannot be computed
// from is a RunTimeError(DivisionByZero).
#pragma once

#include "evaluation/match_statistics.h"
#include "state/workspace.h"

namespace sylvomex {

/// Z errors over tree heights with their regression line and the matched volume.
void Draw_Z_Error_Graph(Workspace& w, Picture& pane);

/// Plan of the plot with a vector from each matched tree to its cluster.
void Draw_XY_Error_Graph(const Workspace& w, Picture& pane);

/// Plan of the plot with a mark at each matched tree that grows with the size of its Z error.
void Draw_Z_Error_Plan(const Workspace& w, Picture& pane);

}  // namespace sylvomex
