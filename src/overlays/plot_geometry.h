// SPDX-License-Identifier: MIT
// Plan positions of the lines that make up plots and grids. X east, Y north, metres.
#pragma once

#include <vector>

namespace sylvomex {

struct PlanPosition {
  double X = 0, Y = 0;
};

using PlanLine = std::vector<PlanPosition>;

/// The 100 m grid around a position: nine lines to the north, from west to east, then nine lines
/// to the east, from south to north. Each is 800 m long with a vertex every 100 m; the south-west
/// corner lies at whole hundreds of metres.
std::vector<PlanLine> Hundred_Metre_Grid(double X, double Y);

/// Vertices of a circle of radius 11.28 m (area 400 m2) from the angle -3.14 to 3.14 in steps of
/// 3.14 / 16, angles from east towards north.
PlanLine Circular_Plot(double X, double Y);

}  // namespace sylvomex
