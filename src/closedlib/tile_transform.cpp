// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

// Scalable vectors have no size at compile time and cannot be stored in a struct.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/tile_transform.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "closedlib/tile_transform.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Reals = hn::CappedTag<double, kBlockCols>;
using Real = hn::Vec<Reals>;

constexpr int kLanes = static_cast<int>(hn::MaxLanes(Reals()));
constexpr int kRowReals = 2 * kBlockCols;  // in a row of a block
constexpr int kStepRoots = 6;              // for a step at one k

struct Complex {
  Real re, im;
};

HWY_INLINE Complex Load(const double* at) {
  return {hn::Load(Reals(), at), hn::Load(Reals(), at + kBlockCols)};
}

HWY_INLINE void Store(Complex z, double* at) {
  hn::Store(z.re, Reals(), at);
  hn::Store(z.im, Reals(), at + kBlockCols);
}

HWY_INLINE Complex Plus(Complex a, Complex b) { return {hn::Add(a.re, b.re), hn::Add(a.im, b.im)}; }

HWY_INLINE Complex Minus(Complex a, Complex b) {
  return {hn::Sub(a.re, b.re), hn::Sub(a.im, b.im)};
}

/// a + i b.
HWY_INLINE Complex Plus_Turned(Complex a, Complex b) {
  return {hn::Sub(a.re, b.im), hn::Add(a.im, b.re)};
}

/// a - i b.
HWY_INLINE Complex Minus_Turned(Complex a, Complex b) {
  return {hn::Add(a.re, b.im), hn::Sub(a.im, b.re)};
}

HWY_INLINE Complex Times(Complex a, Complex b) {
  return {hn::NegMulAdd(a.im, b.im, hn::Mul(a.re, b.re)),
          hn::MulAdd(a.re, b.im, hn::Mul(a.im, b.re))};
}

/// a times the conjugate of b.
HWY_INLINE Complex Times_Conjugate(Complex a, Complex b) {
  return {hn::MulAdd(a.im, b.im, hn::Mul(a.re, b.re)),
          hn::NegMulAdd(a.re, b.im, hn::Mul(a.im, b.re))};
}

HWY_INLINE Complex Root(const double* at) {
  return {hn::Set(Reals(), at[0]), hn::Set(Reals(), at[1])};
}

struct Four {
  Complex a, b, c, d;
};

/// Load and store values that are `apart` doubles from each other.
HWY_INLINE Four Load_Four(const double* at, std::ptrdiff_t apart) {
  return {Load(at), Load(at + apart), Load(at + 2 * apart), Load(at + 3 * apart)};
}

HWY_INLINE void Store_Four(const Four& x, double* at, std::ptrdiff_t apart) {
  Store(x.a, at);
  Store(x.b, at + apart);
  Store(x.c, at + 2 * apart);
  Store(x.d, at + 3 * apart);
}

/// The transform of four values, frequencies in the order 0, 2, 1, 3.
HWY_INLINE Four Forward_Four(const Four& x) {
  const Complex s = Plus(x.a, x.c), t = Minus(x.a, x.c);
  const Complex u = Plus(x.b, x.d), e = Minus(x.b, x.d);
  return {Plus(s, u), Minus(s, u), Minus_Turned(t, e), Plus_Turned(t, e)};
}

/// Inverse of Forward_Four except for the factor 4.
HWY_INLINE Four Inverse_Four(const Four& x) {
  const Complex s = Plus(x.a, x.b), t = Minus(x.a, x.b);
  const Complex u = Plus(x.c, x.d), e = Minus(x.c, x.d);
  return {Plus(s, u), Plus_Turned(t, e), Minus(s, u), Minus_Turned(t, e)};
}

/// The root exp(-2 pi i k / 8).
HWY_INLINE Complex Eighth(int k) {
  constexpr double kHalf = 0.5 * std::numbers::sqrt2;
  constexpr double kRoots[4][2] = {{1, 0}, {kHalf, -kHalf}, {0, -1}, {-kHalf, -kHalf}};
  return Root(kRoots[k]);
}

HWY_INLINE void Forward_Eight(double* x) {
  const Four low = Load_Four(x, kRowReals);
  const Four high = Load_Four(x + 4 * kRowReals, kRowReals);
  const Four sum = {Plus(low.a, high.a), Plus(low.b, high.b), Plus(low.c, high.c),
                    Plus(low.d, high.d)};
  const Four turned = {Minus(low.a, high.a), Times(Minus(low.b, high.b), Eighth(1)),
                       Times(Minus(low.c, high.c), Eighth(2)),
                       Times(Minus(low.d, high.d), Eighth(3))};
  Store_Four(Forward_Four(sum), x, kRowReals);
  Store_Four(Forward_Four(turned), x + 4 * kRowReals, kRowReals);
}

/// Inverse of Forward_Eight except for the factor 8.
HWY_INLINE void Inverse_Eight(double* x) {
  const Four sum = Inverse_Four(Load_Four(x, kRowReals));
  const Four turned = Inverse_Four(Load_Four(x + 4 * kRowReals, kRowReals));
  const Four high = {turned.a, Times_Conjugate(turned.b, Eighth(1)),
                     Times_Conjugate(turned.c, Eighth(2)), Times_Conjugate(turned.d, Eighth(3))};
  Store_Four({Plus(sum.a, high.a), Plus(sum.b, high.b), Plus(sum.c, high.c), Plus(sum.d, high.d)},
             x, kRowReals);
  Store_Four(
      {Minus(sum.a, high.a), Minus(sum.b, high.b), Minus(sum.c, high.c), Minus(sum.d, high.d)},
      x + 4 * kRowReals, kRowReals);
}

/// Transforms of kBlockCols columns of n values. Each quarter is finished before the next, so that
/// a long column goes through the L1 cache once.
void Forward(double* x, int n, const double* roots) {
  const int quarter = n / 4;
  const std::ptrdiff_t apart = std::ptrdiff_t{quarter} * kRowReals;
  if (n <= 8) {
    for (int lane = 0; lane < kBlockCols; lane += kLanes) {
      if (n == 8) {
        Forward_Eight(x + lane);
      } else {
        Store_Four(Forward_Four(Load_Four(x + lane, apart)), x + lane, apart);
      }
    }
    return;
  }
  const double* root = roots;
  for (int k = 0; k < quarter; ++k, root += kStepRoots) {
    for (int lane = 0; lane < kBlockCols; lane += kLanes) {
      double* at = x + k * kRowReals + lane;
      Four y = Forward_Four(Load_Four(at, apart));
      y.b = Times(y.b, Root(root + 2));
      y.c = Times(y.c, Root(root));
      y.d = Times(y.d, Root(root + 4));
      Store_Four(y, at, apart);
    }
  }
  for (int part = 0; part < 4; ++part) Forward(x + part * apart, quarter, root);
}

/// Inverse of Forward except for the factor n.
void Inverse(double* x, int n, const double* roots) {
  const int quarter = n / 4;
  const std::ptrdiff_t apart = std::ptrdiff_t{quarter} * kRowReals;
  if (n <= 8) {
    for (int lane = 0; lane < kBlockCols; lane += kLanes) {
      if (n == 8) {
        Inverse_Eight(x + lane);
      } else {
        Store_Four(Inverse_Four(Load_Four(x + lane, apart)), x + lane, apart);
      }
    }
    return;
  }
  const double* finer = roots + quarter * kStepRoots;
  for (int part = 0; part < 4; ++part) Inverse(x + part * apart, quarter, finer);
  const double* root = roots;
  for (int k = 0; k < quarter; ++k, root += kStepRoots) {
    for (int lane = 0; lane < kBlockCols; lane += kLanes) {
      double* at = x + k * kRowReals + lane;
      Four y = Load_Four(at, apart);
      y.b = Times_Conjugate(y.b, Root(root + 2));
      y.c = Times_Conjugate(y.c, Root(root));
      y.d = Times_Conjugate(y.d, Root(root + 4));
      Store_Four(Inverse_Four(y), at, apart);
    }
  }
}

/// Transposes kBlockCols x kBlockCols values whose rows are kRowReals apart.
HWY_INLINE void Transpose(const double* from, double* to) {
  const hn::CappedTag<double, 2> pair;
  constexpr int kStep = static_cast<int>(hn::MaxLanes(pair));
  for (int row = 0; row < kBlockCols; row += kStep) {
    for (int col = 0; col < kBlockCols; col += kStep) {
      const double* at = from + row * kRowReals + col;
      const auto upper = hn::Load(pair, at);
#if HWY_TARGET == HWY_SCALAR
      hn::Store(upper, pair, to + col * kRowReals + row);
#else
      const auto lower = hn::Load(pair, at + kRowReals);
      hn::Store(hn::InterleaveLower(pair, upper, lower), pair, to + col * kRowReals + row);
      hn::Store(hn::InterleaveUpper(pair, upper, lower), pair, to + (col + 1) * kRowReals + row);
#endif
    }
  }
}

/// Rows first_row ... first_row + kBlockCols - 1 of a tile as the columns of a block.
void Lift_Rows(const TileTransform& t, const double* tile, int first_row, double* lifted) {
  for (int col = 0; col < t.shape.cols; col += kBlockCols) {
    const double* from = tile + first_row * kRowReals;
    Transpose(from, lifted);
    Transpose(from + kBlockCols, lifted + kBlockCols);
    tile += t.block_reals;
    lifted += kBlockCols * kRowReals;
  }
}

void Lower_Rows(const TileTransform& t, const double* lifted, int first_row, double* tile) {
  for (int col = 0; col < t.shape.cols; col += kBlockCols) {
    double* to = tile + first_row * kRowReals;
    Transpose(lifted, to);
    Transpose(lifted + kBlockCols, to + kBlockCols);
    tile += t.block_reals;
    lifted += kBlockCols * kRowReals;
  }
}

void Transform_Columns(const TileTransform& t, double* block) {
  Forward(block, t.shape.rows, t.col_roots.data());
}

/// Rows of a transformed template as a filter: conjugated, because it correlates, and scaled to
/// cancel the factors of the forward and inverse steps.
void Filter_Of_Rows(const TileTransform& t, const double* tile, int first_row, double* filter) {
  Lift_Rows(t, tile, first_row, filter);
  Forward(filter, t.shape.cols, t.row_roots.data());
  const Reals d;
  const auto scale = hn::Set(d, 1.0 / t.shape.cols / t.shape.rows);
  for (int k = 0; k < t.shape.cols * kRowReals; k += kRowReals) {
    for (int lane = 0; lane < kBlockCols; lane += kLanes) {
      const Complex z = Load(filter + k + lane);
      Store({hn::Mul(z.re, scale), hn::Neg(hn::Mul(z.im, scale))}, filter + k + lane);
    }
  }
}

/// Transforms rows of a tile, applies the filter and transforms them back.
void Filter_Rows(const TileTransform& t, const double* filter, int first_row, double* tile,
                 double* lifted) {
  Lift_Rows(t, tile, first_row, lifted);
  Forward(lifted, t.shape.cols, t.row_roots.data());
  for (int k = 0; k < t.shape.cols * kRowReals; k += kRowReals) {
    for (int lane = 0; lane < kBlockCols; lane += kLanes) {
      Store(Times(Load(lifted + k + lane), Load(filter + k + lane)), lifted + k + lane);
    }
  }
  Inverse(lifted, t.shape.cols, t.row_roots.data());
  Lower_Rows(t, lifted, first_row, tile);
}

/// Inverse transform of the columns; the values are rounded.
void Restore_Columns(const TileTransform& t, double* block) {
  Inverse(block, t.shape.rows, t.col_roots.data());
  const Reals d;
  for (int k = 0; k < t.shape.rows * kRowReals; k += kLanes) {
    hn::Store(hn::Round(hn::Load(d, block + k)), d, block + k);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {
namespace {

HWY_EXPORT(Transform_Columns);
HWY_EXPORT(Filter_Of_Rows);
HWY_EXPORT(Filter_Rows);
HWY_EXPORT(Restore_Columns);

constexpr std::size_t kRow = 2 * kBlockCols;
constexpr int kTakenCols = 8 * kBlockCols;  // copied from a tile together: fewer passes over a row

/// Copies columns first_col ... first_col + kBlockCols - 1 of the given pixels to the real
/// (part 0) or imaginary (part 1) parts of a block of zeros.
template <class Pixel>
void Fill_Block(const TileView<const Pixel>& pixels, int first_col, std::size_t part,
                double* block) {
  const int cols = std::min(kBlockCols, pixels.cols - first_col);
  double* to = block + part * kBlockCols;
  const Pixel* from = pixels.first + first_col;
  for (int row = 0; row < pixels.rows; ++row, to += kRow, from += pixels.width) {
    for (int col = 0; col < cols; ++col) to[col] = from[col];
  }
}

/// Copies the parts of blocks from first_col on, at most kTakenCols columns, into a result.
void Take_Blocks(const TileTransform& t, const double* blocks, int first_col, std::size_t part,
                 const TileView<double>& result) {
  const int cols = std::min(kTakenCols, result.cols - first_col);
  const double* from = blocks + part * kBlockCols;
  double* to = result.first + first_col;
  for (int row = 0; row < result.rows; ++row, from += kRow, to += result.width) {
    int col = 0;
    const double* at = from;
    for (; col + kBlockCols <= cols; col += kBlockCols, at += t.block_reals) {
      std::memcpy(to + col, at, sizeof(double) * kBlockCols);
    }
    std::copy_n(at, cols - col, to + col);
  }
}

}  // namespace

std::vector<double> Step_Roots(int length) {
  std::vector<double> roots;
  for (int n = length; n > 8; n /= 4) {
    for (int k = 0; k < n / 4; ++k) {
      for (int power = 1; power <= 3; ++power) {
        const double angle = -2 * std::numbers::pi * power * k / n;
        roots.push_back(std::cos(angle));
        roots.push_back(std::sin(angle));
      }
    }
  }
  return roots;
}

TileTransform::TileTransform(TileShape tile_shape)
    : shape(tile_shape),
      col_roots(Step_Roots(tile_shape.rows)),
      row_roots(Step_Roots(tile_shape.cols)),
      // One more row, so that the blocks do not compete for the same cache sets.
      block_reals((static_cast<std::size_t>(tile_shape.rows) + 1) * kRow) {}

std::size_t TileTransform::Filter_Reals() const {
  return 2 * static_cast<std::size_t>(shape.cols) * static_cast<std::size_t>(shape.rows);
}

std::size_t TileTransform::Work_Reals() const {
  const auto cols = static_cast<std::size_t>(shape.cols);
  return cols / kBlockCols * block_reals + cols * kRow;
}

void Make_Filter(const TileTransform& t, const TileView<const std::int8_t>& pattern, double* filter,
                 double* work) {
  double* block = work;
  for (int col = 0; col < t.shape.cols; col += kBlockCols, block += t.block_reals) {
    std::fill_n(block, t.block_reals, 0.0);
    if (col >= pattern.cols) continue;
    Fill_Block(pattern, col, 0, block);
    HWY_DYNAMIC_DISPATCH(Transform_Columns)(t, block);
  }
  for (int row = 0; row < t.shape.rows; row += kBlockCols) {
    HWY_DYNAMIC_DISPATCH(Filter_Of_Rows)(t, work, row, filter);
    filter += static_cast<std::size_t>(t.shape.cols) * kRow;
  }
}

void Correlate_Tiles(const TileTransform& t, const double* filter,
                     const std::array<TileView<const std::uint8_t>, 2>& tiles,
                     const std::array<TileView<double>, 2>& results, double* work) {
  double* block = work;
  for (int col = 0; col < t.shape.cols; col += kBlockCols, block += t.block_reals) {
    std::fill_n(block, t.block_reals, 0.0);
    if (col >= std::max(tiles[0].cols, tiles[1].cols)) continue;
    for (std::size_t part = 0; part < 2; ++part) Fill_Block(tiles[part], col, part, block);
    HWY_DYNAMIC_DISPATCH(Transform_Columns)(t, block);
  }
  double* lifted = block;
  for (int row = 0; row < t.shape.rows; row += kBlockCols) {
    HWY_DYNAMIC_DISPATCH(Filter_Rows)(t, filter, row, work, lifted);
    filter += static_cast<std::size_t>(t.shape.cols) * kRow;
  }
  const int result_cols = std::max(results[0].cols, results[1].cols);
  for (int first = 0; first < result_cols; first += kTakenCols) {
    double* blocks = work + static_cast<std::size_t>(first / kBlockCols) * t.block_reals;
    block = blocks;
    for (int col = first; col < std::min(first + kTakenCols, result_cols); col += kBlockCols) {
      HWY_DYNAMIC_DISPATCH(Restore_Columns)(t, block);
      block += t.block_reals;
    }
    for (std::size_t part = 0; part < 2; ++part) {
      if (first < results[part].cols) Take_Blocks(t, blocks, first, part, results[part]);
    }
  }
}

}  // namespace sylvomex
#endif  // HWY_ONCE
