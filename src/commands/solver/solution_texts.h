// SPDX-License-Identifier: MIT
// What every command that sets the solution says and records about it.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// X, Y and Z of any point (metres) into the three Label4 fields by a pattern.
void Show_Point(Workspace& w, const Point3D& point, const char* pattern);

/// The same in plain number text.
void Show_Point_Plain(Workspace& w, const Point3D& point);

/// The running measurement number and the solution's X, Y, Z into the observation record.
void Record_Solution(Workspace& w);

}  // namespace sylvomex
