// SPDX-License-Identifier: MIT
// The ground: a square lattice of heights, bilinear between them. Metres; X east, Y north.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace sylvomex::demo {

struct Ground {
  double west = 0;              // X of the first column of nodes
  double south = 0;             // Y of the first row of nodes
  double spacing = 1;           // between nodes
  int side = 0;                 // nodes a row, and rows
  std::vector<double> heights;  // row by row from the south
  double steepest = 0;          // steepest slope between neighbouring nodes
};

/// Rolling ground between 140 and 180 m, extending 300 m beyond the forest square on all sides.
Ground Make_Ground(std::uint64_t seed);

struct GroundSample {
  double Z = 0;
  double slope_x = 0;  // dZ/dX
  double slope_y = 0;  // dZ/dY
};

/// Beyond the lattice the height of its nearest edge continues.
inline GroundSample Sample_Ground(const Ground& ground, double X, double Y) {
  const double limit = ground.side - 1.000001;
  const double column = std::clamp((X - ground.west) / ground.spacing, 0.0, limit);
  const double row = std::clamp((Y - ground.south) / ground.spacing, 0.0, limit);
  const int i = static_cast<int>(column), j = static_cast<int>(row);
  const double fx = column - i, fy = row - j;
  const double* node = ground.heights.data() + static_cast<std::ptrdiff_t>(j) * ground.side + i;
  const double sw = node[0], se = node[1], nw = node[ground.side], ne = node[ground.side + 1];
  const double south = sw + (se - sw) * fx, north = nw + (ne - nw) * fx;
  return {south + (north - south) * fy, ((se - sw) * (1 - fy) + (ne - nw) * fy) / ground.spacing,
          (north - south) / ground.spacing};
}

inline double Ground_Height(const Ground& ground, double X, double Y) {
  return Sample_Ground(ground, X, Y).Z;
}

}  // namespace sylvomex::demo
