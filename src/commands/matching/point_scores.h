// SPDX-License-Identifier: MIT
// The search mesh and its scores.
#pragma once

namespace sylvomex {

struct Workspace;

void Create_XYZ_Point_Set(Workspace& w);      // a mesh through the canopy layer of the plot
void Compute_Back_Projections(Workspace& w);  // scores its points by the correlation images

}  // namespace sylvomex
