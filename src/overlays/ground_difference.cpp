// SPDX-License-Identifier: MIT
#include "overlays/ground_difference.h"

#include <algorithm>
#include <cmath>

namespace sylvomex {

void GroundDifference::Add(double ground, double local_ground, double tree_height) {
  const double difference = ground - local_ground;
  sum += difference;
  sum_of_squares += difference * difference;
  lowest_tree = count == 0 ? tree_height : std::min(lowest_tree, tree_height);
  highest_tree = count == 0 ? tree_height : std::max(highest_tree, tree_height);
  ++count;
}

double GroundDifference::Mean() const { return sum / count; }

double GroundDifference::Rmse() const { return std::sqrt(sum_of_squares / count); }

}  // namespace sylvomex
