// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "platform/point3d.h"
#include "region/plan_record.h"

namespace sylvomex {

/// A tree top as a task found it; working coordinates.
struct FoundTop {
  Point3D at;
  double score = 0;
  int members = 0;
  int number = 0;        // in its task
  std::size_t task = 0;  // index in the plan
  bool is_own = false;   // lies in the task's own cell
};

/// Whether a place lies in a cell: within the circle, or in the tile with its west and south sides.
bool Lies_In(const OwnCell& cell, double X, double Y);

/// Whether it lies in the cell or nearer than `distance` to it.
bool Lies_Near(const OwnCell& cell, double X, double Y, double distance);

/// One top for every tree. From the highest score down (of equal ones, in the order of tasks and
/// numbers) a top is kept unless a kept one of another task lies nearer than `distance` in plan. A
/// top outside its task's own cell is kept only where another task found it, too, within that
/// distance: so a tree on a seam that both sides put beyond it is not lost.
///
/// tops: those that lie in or near their task's cell. Returned in the order of tasks and numbers.
std::vector<FoundTop> One_Top_A_Tree(std::vector<FoundTop> tops, double distance);

}  // namespace sylvomex
