// SPDX-License-Identifier: MIT
// The correlation image by its literal definition, pixel by pixel, in exact integers.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "closedlib/correlation_by_path.h"
#include "closedlib/wide_integer.h"

namespace sylvomex {

struct PairSums {
  Int128 n = 0, v = 0, t = 0, vv = 0, tt = 0, vt = 0;
};

/// Sums over the template's non-zero pixels with its reference point on a patch pixel; false
/// when one of them lies outside the patch.
inline bool Sum_Pairs(const CorrelationInput& in, int col, int row, PairSums& sums) {
  for (int j = 0; j < in.template_height; ++j) {
    for (int i = 0; i < in.template_width; ++i) {
      const int t = in.pattern[static_cast<std::size_t>(j * in.template_width + i)];
      if (t == 0) continue;
      const int x = col + i - in.reference_col;
      const int y = row + j - in.reference_row;
      if (x < 0 || y < 0 || x >= in.patch_width || y >= in.patch_height) return false;
      const int v = in.patch[static_cast<std::size_t>(y * in.patch_width + x)];
      sums.n += 1;
      sums.v += v;
      sums.t += t;
      sums.vv += v * v;
      sums.tt += t * t;
      sums.vt += v * t;
    }
  }
  return true;
}

inline long double Plain_Coefficient(const CorrelationInput& in, int col, int row) {
  PairSums s;
  if (!Sum_Pairs(in, col, row, s)) return 0;
  const Int128 variances[] = {s.n * s.vv - s.v * s.v, s.n * s.tt - s.t * s.t};
  if (variances[0] == 0 || variances[1] == 0) return 0;
  return static_cast<long double>(s.n * s.vt - s.v * s.t) /
         std::sqrt(static_cast<long double>(variances[0]) * static_cast<long double>(variances[1]));
}

using Bytes = std::vector<std::uint8_t>;
using Random = std::mt19937;

inline int Draw(Random& random, int least, int most) {
  return std::uniform_int_distribution<int>(least, most)(random);
}

/// Bytes from least to most.
inline Bytes Random_Bytes(Random& random, std::size_t count, int least, int most) {
  Bytes bytes(count);
  for (std::uint8_t& b : bytes) b = static_cast<std::uint8_t>(Draw(random, least, most));
  return bytes;
}

}  // namespace sylvomex
