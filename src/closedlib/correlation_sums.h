// SPDX-License-Identifier: MIT
// The sums behind a correlation image, all exact integers, so that every implementation
// gives the same bits. With v a patch pixel and t a template value at a pixel of the mask:
// products = sum of v (t - 128), sums = sum of v, squares = sum of v (v - 128).
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "closedlib/correlation_plan.h"

namespace sylvomex {

/// Sums of kTileCols windows side by side.
struct RowSums {
  alignas(64) std::array<std::int32_t, kTileCols> sums{};
  alignas(64) std::array<std::int32_t, kTileCols> squares{};
};

struct BlockSums {
  alignas(64) std::array<std::array<std::int32_t, kTileCols>, kBlockRows> products{};
  std::array<RowSums, kBlockRows> rows{};
};

/// One implementation of the sums.
struct SumPath {
  /// Sums of the windows of one row, pixel by pixel. window: the first window's first pixel.
  void (*start)(const MaskBand& band, const std::uint8_t* window, RowSums& row);
  /// Products of kBlockRows rows of windows. stride: from one row of pixels to the next.
  void (*products)(const MaskBand& band, const std::uint8_t* window, int stride, BlockSums& block);
  /// Window sums of the same rows. row: sums of the first row at call, of the row after the
  /// last on return.
  void (*slide)(const MaskBand& band, const std::uint8_t* window, int stride, RowSums& row,
                BlockSums& block);
  /// Time of `products` per window and tap, in the unit of TileChoice.
  double tap_cost = 0;
};

/// Runs on every machine; the widest vector unit is chosen at run time.
const SumPath& Portable_Sums();

/// Byte dot products of AVX-512 VNNI; nullptr on machines without them.
const SumPath* Byte_Dot_Sums();

/// Constants that turn sums into coefficients.
struct CoefficientTerms {
  double pixels = 0, pattern_sum = 0, pattern_variance = 0;
};

/// Coefficients of count windows; pattern_variance must be greater than 0.
void Row_Coefficients(const CoefficientTerms& terms,
                      const std::array<std::int32_t, kTileCols>& products, const RowSums& sums,
                      int count, double* result);

}  // namespace sylvomex
