// SPDX-License-Identifier: MIT
// The height of one place that was pointed at in the fixed image.
#pragma once

namespace sylvomex {

struct Workspace;

void Get_Surface_Height(Workspace& w);                // images 0 and 1
void Get_surface_single_point_triplet(Workspace& w);  // images 1, 0 and 2

}  // namespace sylvomex
