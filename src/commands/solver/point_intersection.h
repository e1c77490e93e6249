// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

void Point_Intersection(Workspace& w);
void Single_Photo_intersection(Workspace& w);

}  // namespace sylvomex
