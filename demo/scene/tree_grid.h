// SPDX-License-Identifier: MIT
// A uniform grid over the trees in plan, traversed cell by cell along a ray (Amanatides and Woo
// 1987, "A fast voxel traversal algorithm for ray tracing").
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "demo/scene/crown.h"

namespace sylvomex::demo {

struct TreeGrid {
  double west = 0, south = 0;  // corner of the first cell, metres
  double cell = 6;
  int columns = 0, rows = 0;
  std::vector<int> starts;        // cell k lists items[starts[k]] .. items[starts[k + 1] - 1]
  std::vector<int> items;         // indices in the stand
  std::vector<double> cell_tops;  // highest top in the cell, metres; lowest double if empty
  double highest_top = 0;
  double tallest = 0;  // largest tree height, metres
};

TreeGrid Make_Tree_Grid(const std::vector<Tree>& stand);

/// Indices in the stand of the trees whose crowns may extend into the cell.
inline std::span<const int> Trees_Of_Cell(const TreeGrid& grid, int cell) {
  const auto k = static_cast<std::size_t>(cell);
  return {grid.items.data() + grid.starts[k], grid.items.data() + grid.starts[k + 1]};
}

/// The cell that contains a position, or -1.
inline int Cell_At(const TreeGrid& grid, double X, double Y) {
  const double i = std::floor((X - grid.west) / grid.cell);
  const double j = std::floor((Y - grid.south) / grid.cell);
  if (!(i >= 0 && j >= 0 && i < grid.columns && j < grid.rows)) return -1;
  return static_cast<int>(j) * grid.columns + static_cast<int>(i);
}

namespace grid_detail {

/// One axis of the traversal.
struct Axis {
  int at = 0;       // cell number
  int step = 0;     // +1 or -1
  double next = 0;  // t at which the next cell begins
  double per_cell = 0;
};

inline Axis Start_Axis(double start, double rate, double t, int count) {
  // start and rate in cell units; from: t at which the traversal begins.
  Axis axis;
  const double position = start + t * rate;
  axis.at = std::clamp(static_cast<int>(std::floor(position)), 0, count - 1);
  axis.step = rate < 0 ? -1 : 1;
  if (rate == 0) {
    axis.next = axis.per_cell = std::numeric_limits<double>::infinity();
  } else {
    axis.per_cell = 1 / std::abs(rate);
    axis.next = (axis.at + (rate > 0 ? 1 : 0) - start) / rate;
  }
  return axis;
}

/// Clips [from, to] to where start + t rate lies in 0 .. count.
inline void Clip_To_Count(double start, double rate, int count, double& from, double& to) {
  if (rate == 0) {
    if (start < 0 || start > count) to = from - 1;
    return;
  }
  const double a = -start / rate, b = (count - start) / rate;
  from = std::max(from, std::min(a, b));
  to = std::min(to, std::max(a, b));
}

}  // namespace grid_detail

/// Calls visit(cell, t_enter, t_leave) for the cells under the ray from t = from to t = to, in
/// order, until it returns true.
template <class Visitor>
void Walk_Cells(const TreeGrid& grid, const Ray& ray, double from, double to, Visitor&& visit) {
  using namespace grid_detail;
  const double x = (ray.x - grid.west) / grid.cell, u = ray.u / grid.cell;
  const double y = (ray.y - grid.south) / grid.cell, v = ray.v / grid.cell;
  Clip_To_Count(x, u, grid.columns, from, to);
  Clip_To_Count(y, v, grid.rows, from, to);
  if (!(from <= to)) return;
  Axis along_x = Start_Axis(x, u, from, grid.columns);
  Axis along_y = Start_Axis(y, v, from, grid.rows);
  double enter = from;
  while (enter <= to && along_x.at >= 0 && along_x.at < grid.columns && along_y.at >= 0 &&
         along_y.at < grid.rows) {
    Axis& nearer = along_x.next <= along_y.next ? along_x : along_y;
    const double leave = std::min(nearer.next, to);
    if (visit(along_y.at * grid.columns + along_x.at, enter, leave)) return;
    enter = nearer.next;
    nearer.at += nearer.step;
    nearer.next += nearer.per_cell;
  }
}

}  // namespace sylvomex::demo
