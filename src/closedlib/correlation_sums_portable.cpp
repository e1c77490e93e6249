// SPDX-License-Identifier: MIT
// Sums by 16-bit products on any vector unit: a 32-bit lane takes two neighbouring columns,
// and the windows that start at even and at odd columns share a vector each.
#include <algorithm>
#include <cstring>

// Vectors of scalable targets have no size at compile time and cannot be stored in arrays.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "closedlib/correlation_sums_portable.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "closedlib/correlation_sums.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace sylvomex {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::CappedTag<std::int16_t, kTileCols>;
using Bytes = hn::Rebind<std::uint8_t, Words>;
using Sums = hn::RepartitionToWide<Words>;

constexpr int kPairPhases = 2;

/// Two neighbouring taps in every lane.
HWY_INLINE hn::Vec<Words> Tap_Pair(const std::int16_t* taps) {
  std::int32_t pair = 0;
  std::memcpy(&pair, taps, sizeof pair);
  return hn::BitCast(Words(), hn::Set(Sums(), pair));
}

HWY_INLINE hn::Vec<Words> Load_Words(const std::uint8_t* pixels) {
  return hn::PromoteTo(Words(), hn::LoadU(Bytes(), pixels));
}

/// Products of kBlockRows rows of as many windows as a vector has words, from column `from`.
HWY_INLINE void Column_Products(const MaskBand& band, const std::uint8_t* pixels, int stride,
                                std::size_t from, BlockSums& block) {
  const Sums sums;
  hn::Vec<Sums> low[kBlockRows][kPairPhases], high[kBlockRows][kPairPhases];
  for (int row = 0; row < kBlockRows; ++row) {
    for (int k = 0; k < kPairPhases; ++k) low[row][k] = high[row][k] = hn::Zero(sums);
  }
  const std::int16_t* taps = band.wide_taps.data() + (kBlockRows - 1) * band.tap_cols;
  for (const GroupRange reach : band.reach) {
    for (int col = kTapGroup * reach.first; col < kTapGroup * reach.last; col += kPairPhases) {
      const auto even = Load_Words(pixels + col);
      const auto odd = Load_Words(pixels + col + 1);
#pragma GCC unroll 6
      for (int row = 0; row < kBlockRows; ++row) {
        const auto tap = Tap_Pair(taps + col - row * band.tap_cols);
        low[row][0] = hn::ReorderWidenMulAccumulate(sums, even, tap, low[row][0], high[row][0]);
        low[row][1] = hn::ReorderWidenMulAccumulate(sums, odd, tap, low[row][1], high[row][1]);
      }
    }
    taps += band.tap_cols;
    pixels += stride;
  }
  for (int row = 0; row < kBlockRows; ++row) {
    hn::StoreInterleaved2(hn::RearrangeToOddPlusEven(low[row][0], high[row][0]),
                          hn::RearrangeToOddPlusEven(low[row][1], high[row][1]), sums,
                          block.products[static_cast<std::size_t>(row)].data() + from);
  }
}

void Block_Products(const MaskBand& band, const std::uint8_t* pixels, int stride,
                    BlockSums& block) {
  const std::size_t step = hn::Lanes(Words());
  for (std::size_t from = 0; from < kTileCols; from += step) {
    Column_Products(band, pixels + from, stride, from, block);
  }
}

void Add_All(const MaskBand& band, const std::uint8_t* window, RowSums& row) {
  const Sums sums;
  const hn::Rebind<std::uint8_t, Sums> bytes;
  const auto bias = hn::Set(sums, kTapOffset);
  for (std::size_t k = 0; k < kTileCols; k += hn::Lanes(sums)) {
    auto sum = hn::Zero(sums);
    auto squares = hn::Zero(sums);
    for (const std::int32_t place : band.all) {
      const auto v = hn::PromoteTo(sums, hn::LoadU(bytes, window + place + k));
      sum = hn::Add(sum, v);
      squares = hn::Add(squares, hn::Mul(v, hn::Sub(v, bias)));
    }
    hn::Store(sum, sums, row.sums.data() + k);
    hn::Store(squares, sums, row.squares.data() + k);
  }
}

/// The entering pixels of windows minus the leaving ones, in 16 bits: sums of v and of v (v - 255)
/// = 256 high + low.
struct EdgeSums {
  static constexpr std::size_t kMostEdges = 128;

  alignas(64) std::array<std::int16_t, kTileCols> values{};
  alignas(64) std::array<std::int16_t, kTileCols> high{};
  alignas(64) std::array<std::int16_t, kTileCols> low{};
};

/// For a pixel that enters and one that leaves, adds e - l to the values and returns
/// e (e - 255) - l (l - 255) = (e - l) (e + l - 255), which lies within +-16256.
HWY_INLINE hn::Vec<Words> Edge_Change(const std::uint8_t* entering, const std::uint8_t* leaving,
                                      hn::Vec<Words>& values) {
  const auto e = Load_Words(entering);
  const auto l = Load_Words(leaving);
  const auto difference = hn::Sub(e, l);
  values = hn::Add(values, difference);
  return hn::Mul(difference, hn::Sub(hn::Add(e, l), hn::Set(Words(), 255)));
}

/// Adds edges first to last - 1, at most kMostEdges.
void Add_Edges(const MaskBand& band, const std::uint8_t* window, std::size_t first,
               std::size_t last, EdgeSums& edges) {
  const Words words;
  const auto low_bits = hn::Set(words, 255);
  for (std::size_t k = 0; k < kTileCols; k += hn::Lanes(words)) {
    auto values = hn::Zero(words), high = hn::Zero(words), low = hn::Zero(words);
    const auto change = [&](std::size_t edge) HWY_ATTR {
      return Edge_Change(window + band.entering[edge] + k, window + band.leaving[edge] + k, values);
    };
    for (std::size_t edge = first; edge < last; edge += 2) {
      auto squares = change(edge);
      if (edge + 1 < last) squares = hn::Add(squares, change(edge + 1));
      high = hn::Add(high, hn::ShiftRight<8>(squares));
      low = hn::Add(low, hn::And(squares, low_bits));
    }
    hn::Store(values, words, edges.values.data() + k);
    hn::Store(high, words, edges.high.data() + k);
    hn::Store(low, words, edges.low.data() + k);
  }
}

/// Moves the windows down by one row.
void Move_Down(const MaskBand& band, const std::uint8_t* window, RowSums& row) {
  const Sums sums;
  const hn::Rebind<std::int16_t, Sums> words;
  EdgeSums edges;
  for (std::size_t first = 0; first < band.entering.size(); first += EdgeSums::kMostEdges) {
    Add_Edges(band, window, first, std::min(first + EdgeSums::kMostEdges, band.entering.size()),
              edges);
    for (std::size_t k = 0; k < kTileCols; k += hn::Lanes(sums)) {
      const auto values = hn::PromoteTo(sums, hn::Load(words, edges.values.data() + k));
      const auto high = hn::PromoteTo(sums, hn::Load(words, edges.high.data() + k));
      const auto low = hn::PromoteTo(sums, hn::Load(words, edges.low.data() + k));
      // v (v - 128) = v (v - 255) + 127 v.
      const auto squares = hn::Add(hn::Add(hn::ShiftLeft<8>(high), low),
                                   hn::Mul(values, hn::Set(sums, 255 - kTapOffset)));
      hn::Store(hn::Add(hn::Load(sums, row.sums.data() + k), values), sums, row.sums.data() + k);
      hn::Store(hn::Add(hn::Load(sums, row.squares.data() + k), squares), sums,
                row.squares.data() + k);
    }
  }
}

void Slide_Block(const MaskBand& band, const std::uint8_t* window, int stride, RowSums& row,
                 BlockSums& block) {
  for (RowSums& to : block.rows) {
    to = row;
    Move_Down(band, window, row);
    window += stride;
  }
}

using Reals = hn::CappedTag<double, 8>;

/// Exact except for the root and the quotient: the terms are integers below 2^53.
HWY_INLINE hn::Vec<Reals> Coefficients(const CoefficientTerms& terms, hn::Vec<Reals> products,
                                       hn::Vec<Reals> sums, hn::Vec<Reals> squares) {
  const Reals d;
  const auto n = hn::Set(d, terms.pixels);
  const auto shifted = hn::Mul(hn::Set(d, kTapOffset), sums);
  const auto covariance =
      hn::Sub(hn::Mul(n, hn::Add(products, shifted)), hn::Mul(sums, hn::Set(d, terms.pattern_sum)));
  const auto variance = hn::Sub(hn::Mul(n, hn::Add(squares, shifted)), hn::Mul(sums, sums));
  const auto r =
      hn::Div(covariance, hn::Sqrt(hn::Mul(variance, hn::Set(d, terms.pattern_variance))));
  const auto limited = hn::Max(hn::Set(d, -1), hn::Min(hn::Set(d, 1), r));
  return hn::IfThenElseZero(hn::Gt(variance, hn::Zero(d)), limited);
}

void Tile_Coefficients(const CoefficientTerms& terms, const std::int32_t* products,
                       const RowSums& sums, double* result) {
  const Reals d;
  const hn::Rebind<std::int32_t, Reals> whole;
  const auto real = [&](const std::int32_t* from)
                        HWY_ATTR { return hn::PromoteTo(d, hn::Load(whole, from)); };
  for (std::size_t k = 0; k < kTileCols; k += hn::Lanes(d)) {
    hn::StoreU(Coefficients(terms, real(products + k), real(sums.sums.data() + k),
                            real(sums.squares.data() + k)),
               d, result + k);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace sylvomex
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace sylvomex {
namespace {

HWY_EXPORT(Add_All);
HWY_EXPORT(Block_Products);
HWY_EXPORT(Slide_Block);
HWY_EXPORT(Tile_Coefficients);

void Start_Row(const MaskBand& band, const std::uint8_t* window, RowSums& row) {
  HWY_DYNAMIC_DISPATCH(Add_All)(band, window, row);
}

void Add_Products(const MaskBand& band, const std::uint8_t* window, int stride, BlockSums& block) {
  HWY_DYNAMIC_DISPATCH(Block_Products)(band, window, stride, block);
}

void Slide_Rows(const MaskBand& band, const std::uint8_t* window, int stride, RowSums& row,
                BlockSums& block) {
  HWY_DYNAMIC_DISPATCH(Slide_Block)(band, window, stride, row, block);
}

constexpr SumPath kPortableSums = {Start_Row, Add_Products, Slide_Rows, 0.0115};

}  // namespace

const SumPath& Portable_Sums() { return kPortableSums; }

void Row_Coefficients(const CoefficientTerms& terms,
                      const std::array<std::int32_t, kTileCols>& products, const RowSums& sums,
                      int count, double* result) {
  if (count == kTileCols) {
    HWY_DYNAMIC_DISPATCH(Tile_Coefficients)(terms, products.data(), sums, result);
    return;
  }
  std::array<double, kTileCols> all{};
  HWY_DYNAMIC_DISPATCH(Tile_Coefficients)(terms, products.data(), sums, all.data());
  std::copy_n(all.begin(), count, result);
}

}  // namespace sylvomex
#endif  // HWY_ONCE
