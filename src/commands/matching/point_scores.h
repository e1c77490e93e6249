// SPDX-License-Identifier: MIT
// The search mesh and its scores.
#pragma once

namespace sylvomex {

struct Workspace;

void Create_XYZ_Point_Set(Workspace& w);      // fills the canopy layer of the plot with a mesh
void Compute_Back_Projections(Workspace& w);  // scores the mesh points with the correlation images

}  // namespace sylvomex
