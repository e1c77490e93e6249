// SPDX-License-Identifier: MIT
// Correlation of two grey windows. Windows are 8-bit, row by row, of any width and height.
#pragma once

#include <cmath>
#include <cstdint>
#include <span>

namespace sylvomex {

struct WindowStatistics {
  double mean = 0;
  double deviation = 0;  // sample deviation (divisor n - 1); 0 for fewer than two pixels
};

/// Mean and deviation of a window; both 0 for an empty one.
WindowStatistics MYFUNC_TEMPMEANSTD(std::span<const std::uint8_t> window);

/// Pearson's correlation coefficient of two windows of the same size, -1 to 1 (Pearson 1895);
/// 0 when one of them has no variance. Symmetric in the two windows; computed from integer
/// sums.
///
/// window_mean: the mean of the first window, from MYFUNC_TEMPMEANSTD; times the number of pixels
/// it gives the integer sum of the window. RunTimeError(SubscriptOutOfRange) naming both
/// sizes when they differ.
double MYFUNC_CCORB(std::span<const std::uint8_t> window, std::span<const std::uint8_t> pattern,
                    double window_mean);

inline constexpr int kMostWindowSide = 32;  // of a surface search

/// The same for two square windows of a surface search, from integer sums: equal windows give
/// exactly 1, and equal pairs of windows equal values.
///
/// fixed_mean: the mean of the fixed window, from MYFUNC_TEMPMEANSTD; times the number of pixels it
/// gives the integer sum of the window. side: of both windows, 1 to kMostWindowSide.
/// RunTimeError(SubscriptOutOfRange) naming the sizes when a window does not have side x side
/// pixels.
double MYFUNC_CCORA(std::span<const std::uint8_t> fixed, std::span<const std::uint8_t> moving,
                    double fixed_mean, int side);

/// A moving window's sums for a correlation.
struct WindowSums {
  std::int64_t values = 0;
  std::int64_t squares = 0;
  std::int64_t products = 0;  // with the fixed window
};

/// Pearson's coefficient of n pairs of bytes, n at most kMostWindowSide squared. fixed_variation: n
/// times the sum of the fixed window's squares minus its sum squared. The result stays within -1 to
/// 1: the product of the variations rounds to no less than the square of the numerator.
inline double Correlation_Of_Sums(std::int64_t n, std::int64_t fixed_sum,
                                  std::int64_t fixed_variation, const WindowSums& moving) {
  const std::int64_t variation = n * moving.squares - moving.values * moving.values;
  if (variation == 0 || fixed_variation == 0) return 0;
  const std::int64_t common = n * moving.products - fixed_sum * moving.values;
  return static_cast<double>(common) /
         std::sqrt(static_cast<double>(fixed_variation) * static_cast<double>(variation));
}

}  // namespace sylvomex
