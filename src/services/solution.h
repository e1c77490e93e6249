// SPDX-License-Identifier: MIT
// Showing, recording and accepting the current point: the same way for every command that sets it.
#pragma once

#include "platform/point3d.h"

namespace sylvomex {

struct Workspace;

/// Pattern for the three Label4 fields; the empty pattern means plain number text.
inline constexpr const char* kPlainNumbers = "";
inline constexpr const char* kHundredths = "#.00";
inline constexpr const char* kThousandths = "#.000";

/// Shows X, Y and Z of any point (metres) in Label4 items 0, 1 and 2.
void Show_Point(Workspace& w, const Point3D& point, const char* pattern);

/// The same for the solution.
void Show_Solution(Workspace& w, const char* pattern);

/// Stores the current measurement number and the solution's X, Y, Z in the observation record.
void Record_Solution(Workspace& w);

/// After a solution set by hand: sets the flag, fills the record, and shows the status and the
/// solution in plain numbers.
void Accept_Solution(Workspace& w);

}  // namespace sylvomex
