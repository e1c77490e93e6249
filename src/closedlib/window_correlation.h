// SPDX-License-Identifier: MIT
// Likeness of two grey windows. Windows are 8-bit, row by row, of any width and height.
#pragma once

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
/// 0 when one of them has no variance. It is the same for both orders of the windows.
///
/// window_mean: the mean of the first window, from MYFUNC_TEMPMEANSTD. RunTimeError
/// (SubscriptOutOfRange) naming both sizes when they differ.
double MYFUNC_CCORB(std::span<const std::uint8_t> window, std::span<const std::uint8_t> pattern,
                    double window_mean);

}  // namespace sylvomex
