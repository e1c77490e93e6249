// SPDX-License-Identifier: MIT
// Overlays of the 2006 and 2007 tiles around the solution.
#pragma once

namespace sylvomex {

struct Workspace;

void Plot_ALS_2007(Workspace& w);
void Print_ALS_near_solution(Workspace& w);  // the 2006 tile, on the panes
void Plot_Lidar_pdf(Workspace& w);           // computes page values only

}  // namespace sylvomex
