// SPDX-License-Identifier: MIT
// The commands that set the solution by hand.
#pragma once

namespace sylvomex {

struct Workspace;

void Reset_Point_Solution(Workspace& w);
void Set_3D_solution(Workspace& w);
void Set_3D_Sol_File(Workspace& w);
void Set_3D_solution_To_Stereo_Sol(Workspace& w);
void Set_3D_solution_to_a_new_plot_location(Workspace& w);

}  // namespace sylvomex
