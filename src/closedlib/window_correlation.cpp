// SPDX-License-Identifier: MIT
#include "closedlib/window_correlation.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "closedlib/window_products.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

void Require_Square(const char* which, std::size_t pixels, int side) {
  const bool fits = side >= 1 && side <= kMostWindowSide &&
                    pixels == static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
  if (fits) return;
  throw RunTimeError(Failure::SubscriptOutOfRange, std::string("correlation of a ") + which +
                                                       " window of " + std::to_string(pixels) +
                                                       " pixels with side " + std::to_string(side));
}

void Require_Same_Size(std::size_t window, std::size_t pattern) {
  if (window == pattern) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "correlation of a window of " + std::to_string(window) +
                         " pixels with a pattern of " + std::to_string(pattern) + " pixels");
}

}  // namespace

WindowStatistics MYFUNC_TEMPMEANSTD(std::span<const std::uint8_t> window) {
  WindowStatistics statistics;
  if (window.empty()) return statistics;
  const double n = static_cast<double>(window.size());
  std::uint64_t sum = 0;
  for (const std::uint8_t pixel : window) sum += pixel;
  statistics.mean = static_cast<double>(sum) / n;
  if (window.size() < 2) return statistics;
  double squares = 0;
  for (const std::uint8_t pixel : window) {
    const double d = pixel - statistics.mean;
    squares += d * d;
  }
  statistics.deviation = std::sqrt(squares / (n - 1));
  return statistics;
}

double MYFUNC_CCORB(std::span<const std::uint8_t> window, std::span<const std::uint8_t> pattern,
                    double window_mean) {
  Require_Same_Size(window.size(), pattern.size());
  const auto n = static_cast<std::int64_t>(window.size());
  const std::int64_t window_sum = std::llrint(window_mean * static_cast<double>(n));
  const WindowProducts sums = Products_Of_Windows(window.data(), pattern.data(), window.size());
  const std::int64_t window_variation = n * sums.aa - window_sum * window_sum;
  const std::int64_t pattern_variation = n * sums.bb - sums.b * sums.b;
  if (window_variation == 0 || pattern_variation == 0) return 0;
  const double r = static_cast<double>(n * sums.ab - window_sum * sums.b) /
                   (std::sqrt(static_cast<double>(window_variation)) *
                    std::sqrt(static_cast<double>(pattern_variation)));
  return std::clamp(r, -1.0, 1.0);
}

double MYFUNC_CCORA(std::span<const std::uint8_t> fixed, std::span<const std::uint8_t> moving,
                    double fixed_mean, int side) {
  Require_Square("fixed", fixed.size(), side);
  Require_Square("moving", moving.size(), side);
  const auto n = static_cast<std::int64_t>(fixed.size());
  const std::int64_t fixed_sum = std::llrint(fixed_mean * static_cast<double>(n));
  std::int64_t fixed_squares = 0;
  WindowSums sums;
  for (std::size_t i = 0; i < fixed.size(); ++i) {
    fixed_squares += std::int64_t{fixed[i]} * fixed[i];
    sums.values += moving[i];
    sums.squares += std::int64_t{moving[i]} * moving[i];
    sums.products += std::int64_t{fixed[i]} * moving[i];
  }
  return Correlation_Of_Sums(n, fixed_sum, n * fixed_squares - fixed_sum * fixed_sum, sums);
}

}  // namespace sylvomex
