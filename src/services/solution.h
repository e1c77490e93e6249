// SPDX-License-Identifier: MIT
// The current point: how it is shown, recorded and accepted. One road for every command that
// sets it.
#pragma once

#include "platform/point3d.h"

namespace sylvomex {

struct Workspace;

/// How a point stands in the three Label4 fields: a number pattern, or plain number text.
inline constexpr const char* kPlainNumbers = "";
inline constexpr const char* kHundredths = "#.00";
inline constexpr const char* kThousandths = "#.000";

/// X, Y and Z of any point (metres) into Label4 items 0, 1 and 2.
void Show_Point(Workspace& w, const Point3D& point, const char* pattern);

/// The same for the solution.
void Show_Solution(Workspace& w, const char* pattern);

/// The running measurement number and the solution's X, Y, Z into the observation record.
void Record_Solution(Workspace& w);

/// What follows a solution that was set by hand: the flag, the record, the status line and the
/// solution in plain numbers.
void Accept_Solution(Workspace& w);

}  // namespace sylvomex
