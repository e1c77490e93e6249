// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

void Point_Intersection(Workspace& w);
void Single_Photo_intersection(Workspace& w);

}  // namespace sylvomex
