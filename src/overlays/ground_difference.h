// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// Differences between a raster model and the ground heights of a field plot (model minus plot),
/// and the range of the tree heights. Metres.
struct GroundDifference {
  std::int32_t count = 0;
  double sum = 0;  // sum of the differences
  double sum_of_squares = 0;
  double lowest_tree = 0;  // 0 while there are no trees
  double highest_tree = 0;

  void Add(double ground, double local_ground, double tree_height);

  /// Mean, and root mean square, of the differences; count must be greater than 0.
  [[nodiscard]] double Mean() const;
  [[nodiscard]] double Rmse() const;
};

}  // namespace sylvomex
