// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// How far the heights of a raster model lie above the ground heights of a field plot, and the
/// range of the tree heights. Metres.
struct GroundDifference {
  std::int32_t count = 0;
  double sum = 0;  // of the differences
  double sum_of_squares = 0;
  double lowest_tree = 0;  // 0 while there is no tree
  double highest_tree = 0;

  void Add(double ground, double local_ground, double tree_height);

  /// Mean, and root of the mean square of the differences; count is above 0.
  [[nodiscard]] double Mean() const;
  [[nodiscard]] double Rmse() const;
};

}  // namespace sylvomex
