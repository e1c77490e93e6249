// SPDX-License-Identifier: MIT
// Scalable vectors have no size at compile time and cannot be stored in a struct.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/moving_windows.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "closedlib/moving_windows.h"
#include "closedlib/window_correlation.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::CappedTag<std::int16_t, kMostWindowSide>;
using Bytes = hn::Rebind<std::uint8_t, Words>;
using Sums = hn::RepartitionToWide<Words>;

/// Two partial results; only their sum is meaningful.
struct Pair {
  hn::Vec<Sums> low, high;
};

HWY_INLINE Pair No_Sum() { return {hn::Zero(Sums()), hn::Zero(Sums())}; }

HWY_INLINE void Add_Products(hn::Vec<Words> a, hn::Vec<Words> b, Pair& sum) {
  sum.low = hn::ReorderWidenMulAccumulate(Sums(), a, b, sum.low, sum.high);
}

HWY_INLINE std::int64_t Total(const Pair& sum) {
  return hn::GetLane(hn::SumOfLanes(Sums(), hn::Add(sum.low, sum.high)));
}

HWY_INLINE WindowSums Sums_Of(const FixedWindow& fixed, const MovingWindow& window) {
  const Words words;
  const int side = fixed.Side();
  Pair products = No_Sum(), squares = No_Sum(), values = No_Sum();
  for (int from = 0; from < side; from += static_cast<int>(hn::Lanes(words))) {
    const auto columns = hn::LoadU(words, fixed.Columns() + from);
    const std::uint8_t* pixels = window.first + from;
    auto column_sums = hn::Zero(words);  // each the sum of at most 32 bytes
    for (int row = 0; row < side; ++row, pixels += window.stride) {
      const auto v = hn::And(hn::PromoteTo(words, hn::LoadU(Bytes(), pixels)), columns);
      Add_Products(v, hn::LoadU(words, fixed.Row(row) + from), products);
      Add_Products(v, v, squares);
      column_sums = hn::Add(column_sums, v);
    }
    Add_Products(column_sums, hn::Set(words, 1), values);
  }
  return {Total(values), Total(squares), Total(products)};
}

void Correlate(const FixedWindow& fixed, std::span<const MovingWindow> windows,
               double* correlations) {
  const std::int64_t n = std::int64_t{fixed.Side()} * fixed.Side();
  for (std::size_t k = 0; k < windows.size(); ++k) {
    correlations[k] =
        Correlation_Of_Sums(n, fixed.Sum(), fixed.Variation(), Sums_Of(fixed, windows[k]));
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include <algorithm>
#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

HWY_EXPORT(Correlate);

void Require_Square(std::size_t pixels, int side) {
  const bool fits = side >= 1 && side <= kMostWindowSide &&
                    pixels == static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
  if (fits) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "a fixed window of " + std::to_string(pixels) + " pixels and side " +
                         std::to_string(side) + ", sides of 1 to " +
                         std::to_string(kMostWindowSide) + " are possible");
}

}  // namespace

FixedWindow::FixedWindow(std::span<const std::uint8_t> pixels, int side) : side_(side) {
  Require_Square(pixels.size(), side);
  std::fill_n(columns_.begin(), side, std::int16_t{-1});
  std::int64_t squares = 0;
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    const auto width = static_cast<std::size_t>(side);
    words_[i / width * kMostWindowSide + i % width] = pixels[i];
    sum_ += pixels[i];
    squares += std::int64_t{pixels[i]} * pixels[i];
  }
  variation_ = static_cast<std::int64_t>(pixels.size()) * squares - sum_ * sum_;
}

void Correlate_Windows(const FixedWindow& fixed, std::span<const MovingWindow> windows,
                       std::span<double> correlations) {
  if (correlations.size() < windows.size()) {
    throw RunTimeError(Failure::SubscriptOutOfRange,
                       std::to_string(windows.size()) + " windows with room for " +
                           std::to_string(correlations.size()) + " correlations");
  }
  HWY_DYNAMIC_DISPATCH(Correlate)(fixed, windows, correlations.data());
}

}  // namespace sylvomex

#endif  // HWY_ONCE
