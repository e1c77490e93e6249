// SPDX-License-Identifier: MIT
// Triangles by map cells: the few that have to be tested for a point.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "heightmodels/tin_record.h"

namespace sylvomex {

/// For each cell of a grid the numbers (from 1, ascending) of the triangles whose boxes touch it.
/// The boxes are widened by the largest error of the edge test, so that no other triangle can
/// pass the test for a point of the cell.
struct TinBuckets {
  double west = 0, south = 0, east = 0, north = 0;  // of all boxes
  double columns_per_metre = 0, rows_per_metre = 0;
  std::int32_t columns = 0, rows = 0;  // 0: no grid, every triangle has to be tested
  std::vector<std::uint32_t> first;    // of each cell in numbers, and the end of the last
  std::vector<std::int32_t> numbers;

  [[nodiscard]] std::int32_t Column(double X) const {
    return static_cast<std::int32_t>(
        std::clamp((X - west) * columns_per_metre, 0.0, static_cast<double>(columns - 1)));
  }
  [[nodiscard]] std::int32_t Row(double Y) const {
    return static_cast<std::int32_t>(
        std::clamp((Y - south) * rows_per_metre, 0.0, static_cast<double>(rows - 1)));
  }
};

/// No grid for coordinates beyond 1e100 or edges of nearly no length, for which the error of the
/// edge test has no bound.
TinBuckets Make_Tin_Buckets(std::span<const TinTriangle> triangles);

/// Numbers of the triangles to be tested, empty where none can hold the point. Only with a
/// grid. Any X, Y, NaN and infinity included.
inline std::span<const std::int32_t> Bucket_At(const TinBuckets& grid, double X, double Y) {
  if (!(X >= grid.west && X <= grid.east && Y >= grid.south && Y <= grid.north)) return {};
  const std::size_t cell =
      static_cast<std::size_t>(grid.Row(Y)) * static_cast<std::size_t>(grid.columns) +
      static_cast<std::size_t>(grid.Column(X));
  return std::span(grid.numbers).subspan(grid.first[cell], grid.first[cell + 1] - grid.first[cell]);
}

}  // namespace sylvomex
