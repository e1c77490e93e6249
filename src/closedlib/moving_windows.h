// SPDX-License-Identifier: MIT
// One fixed grey window against many moving ones. All sums are integers, so every vector unit gives
// the same bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "closedlib/window_correlation.h"

namespace sylvomex {

/// A square window inside a raster: row r starts at first + r * stride bytes. The comparison reads
/// kMostWindowSide bytes of every row and ignores those beyond the side.
struct MovingWindow {
  const std::uint8_t* first = nullptr;
  std::ptrdiff_t stride = 0;
};

/// The fixed window, prepared for the comparisons.
class FixedWindow {
 public:
  /// pixels: side x side bytes, row by row; side: 1 to kMostWindowSide.
  /// RunTimeError(SubscriptOutOfRange) naming the sizes otherwise.
  FixedWindow(std::span<const std::uint8_t> pixels, int side);

  [[nodiscard]] int Side() const { return side_; }

  /// A row of the window as kMostWindowSide words, 0 beyond the side.
  [[nodiscard]] const std::int16_t* Row(int row) const {
    return words_.data() + row * kMostWindowSide;
  }

  /// Mask words: all bits set up to the side, 0 beyond it.
  [[nodiscard]] const std::int16_t* Columns() const { return columns_.data(); }

  [[nodiscard]] std::int64_t Sum() const { return sum_; }

  /// n (sum of squares) - (sum) squared, over the n pixels.
  [[nodiscard]] std::int64_t Variation() const { return variation_; }

 private:
  alignas(64) std::array<std::int16_t, kMostWindowSide * kMostWindowSide> words_{};
  alignas(64) std::array<std::int16_t, kMostWindowSide> columns_{};
  std::int64_t sum_ = 0;
  std::int64_t variation_ = 0;
  int side_ = 0;
};

/// Pearson's correlation coefficient of the fixed window with each of the moving ones, -1 to 1,
/// 0 where a window has no variance; the value of MYFUNC_CCORA, bit for bit.
/// correlations: as many entries as windows.
void Correlate_Windows(const FixedWindow& fixed, std::span<const MovingWindow> windows,
                       std::span<double> correlations);

}  // namespace sylvomex
