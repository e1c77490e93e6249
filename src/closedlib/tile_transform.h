// SPDX-License-Identifier: MIT
// Correlation of image tiles with one template by the discrete Fourier transform (Cooley and Tukey
// 1965), so that the cost per window does not depend on the template's size.
//
// A tile of cols x rows complex numbers consists of blocks of kBlockCols columns; a block holds,
// row by row, the real and then the imaginary parts of its columns. Vectors run across the columns
// of a block, so a transform needs no shuffles. Frequencies stay in the order in which the forward
// steps leave them: the inverse steps expect that order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace sylvomex {

inline constexpr int kBlockCols = 8;

/// Sides of a tile: powers of two from 8 on.
struct TileShape {
  int cols = 0, rows = 0;
};

/// Twiddle factors for transforms of a length: for every step of length n, starting with the whole
/// length and going down by factors of 4, and k = 0 ... n / 4 - 1: w^k, w^2k and w^3k with w =
/// exp(-2 pi i / n), real and imaginary part each.
std::vector<double> Step_Roots(int length);

struct TileTransform {
  explicit TileTransform(TileShape shape);

  /// Number of doubles in a filter.
  [[nodiscard]] std::size_t Filter_Reals() const;
  /// Number of doubles of working memory for a tile.
  [[nodiscard]] std::size_t Work_Reals() const;

  TileShape shape;
  std::vector<double> col_roots, row_roots;  // for transforms along a column, along a row
  std::size_t block_reals = 0;               // from one block to the next
};

/// A rectangle of `cols` x `rows` values of an image with `width` values a row.
template <class Value>
struct TileView {
  Value* first = nullptr;
  std::size_t width = 0;
  int cols = 0, rows = 0;
};

/// Computes the filter of a template no larger than the tile. filter: Filter_Reals(), work:
/// Work_Reals() doubles, aligned to 64 bytes.
void Make_Filter(const TileTransform& transform, const TileView<const std::int8_t>& pattern,
                 double* filter, double* work);

/// For two tiles at once, as the real and the imaginary part of one: result(c, r) = sum over the
/// template of tile(c + i, r + j) template(i, j), rounded to an integer. Outside the given
/// pixels a tile is 0. A result has at most the positions at which the template fits in the tile.
/// The sums are exact as long as Transform_Error (correlation_transform.h) stays below one half.
void Correlate_Tiles(const TileTransform& transform, const double* filter,
                     const std::array<TileView<const std::uint8_t>, 2>& tiles,
                     const std::array<TileView<double>, 2>& results, double* work);

}  // namespace sylvomex
