// SPDX-License-Identifier: MIT
// Sums by byte dot products. A 32-bit lane takes four neighbouring columns at once: for the
// products the four taps lie side by side in the patch, and windows k, k + 4, ... share a
// vector; for the window sums four edge pixels from any positions are interleaved.
#include <algorithm>
#include <cstring>

#include "closedlib/correlation_sums.h"

#if defined(__x86_64__) && defined(__GNUC__)
#if !defined(__clang__)
// g++ 12 warns about the undefined operand inside its own intrinsics (PR 105593).
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>

#define SYLVOMEX_VNNI __attribute__((target("avx512f,avx512bw,avx512vl,avx512dq,avx512vnni")))
#define SYLVOMEX_VNNI_INLINE SYLVOMEX_VNNI inline __attribute__((always_inline))

namespace sylvomex {
namespace {

/// sum += a . b, a unsigned and b signed bytes. Inline assembly, because g++ 12 moves the
/// accumulators of the intrinsic through memory.
SYLVOMEX_VNNI_INLINE void Dot(__m512i& sum, __m512i a, __m512i b) {
  __asm__("vpdpbusd %2, %1, %0" : "+v"(sum) : "v"(a), "v"(b));
}

SYLVOMEX_VNNI_INLINE __m512i Load(const void* from) { return _mm512_loadu_si512(from); }

/// Reorders windows from vectors whose 128-bit lane k holds windows 16 k + 4 m ... 16 k + 4 m + 3,
/// where m is the vector.
SYLVOMEX_VNNI_INLINE void Order_Lanes(const __m512i (&v)[4], __m512i (&ordered)[4]) {
  const __m512i a0 = _mm512_shuffle_i32x4(v[0], v[1], 0x44);
  const __m512i a1 = _mm512_shuffle_i32x4(v[0], v[1], 0xEE);
  const __m512i b0 = _mm512_shuffle_i32x4(v[2], v[3], 0x44);
  const __m512i b1 = _mm512_shuffle_i32x4(v[2], v[3], 0xEE);
  ordered[0] = _mm512_shuffle_i32x4(a0, b0, 0x88);
  ordered[1] = _mm512_shuffle_i32x4(a0, b0, 0xDD);
  ordered[2] = _mm512_shuffle_i32x4(a1, b1, 0x88);
  ordered[3] = _mm512_shuffle_i32x4(a1, b1, 0xDD);
}

/// Sums of 64 windows; vector k holds windows k, k + 4, k + 8 ...
struct PhaseSums {
  __m512i k0, k1, k2, k3;
};

SYLVOMEX_VNNI_INLINE void Store_Phases(const PhaseSums& sums,
                                       std::array<std::int32_t, kTileCols>& windows) {
  const __m512i t0 = _mm512_unpacklo_epi32(sums.k0, sums.k1);
  const __m512i t1 = _mm512_unpackhi_epi32(sums.k0, sums.k1);
  const __m512i t2 = _mm512_unpacklo_epi32(sums.k2, sums.k3);
  const __m512i t3 = _mm512_unpackhi_epi32(sums.k2, sums.k3);
  const __m512i lanes[4] = {_mm512_unpacklo_epi64(t0, t2), _mm512_unpackhi_epi64(t0, t2),
                            _mm512_unpacklo_epi64(t1, t3), _mm512_unpackhi_epi64(t1, t3)};
  __m512i ordered[4];
  Order_Lanes(lanes, ordered);
  for (std::size_t k = 0; k < 4; ++k) _mm512_store_si512(windows.data() + 16 * k, ordered[k]);
}

/// A group of four taps in every lane.
SYLVOMEX_VNNI_INLINE __m512i Tap_Group(const std::int8_t* taps) {
  std::int32_t group = 0;
  std::memcpy(&group, taps, sizeof group);
  return _mm512_set1_epi32(group);
}

/// The patch under a tap group, starting at window columns 0, 1, 2 and 3.
struct PhasePixels {
  __m512i k0, k1, k2, k3;
};

SYLVOMEX_VNNI_INLINE void Dot_Phases(PhaseSums& sums, const PhasePixels& pixels,
                                     const std::int8_t* taps) {
  const __m512i tap = Tap_Group(taps);
  Dot(sums.k0, pixels.k0, tap);
  Dot(sums.k1, pixels.k1, tap);
  Dot(sums.k2, pixels.k2, tap);
  Dot(sums.k3, pixels.k3, tap);
}

static_assert(kBlockRows == 6, "one variable a row: 24 sums fill the registers");

SYLVOMEX_VNNI void Add_Products(const MaskBand& band, const std::uint8_t* window, int stride,
                                BlockSums& block) {
  const std::uint8_t* pixels = window;
  const __m512i zero = _mm512_setzero_si512();
  const PhaseSums none = {zero, zero, zero, zero};
  PhaseSums row0 = none, row1 = none, row2 = none, row3 = none, row4 = none, row5 = none;
  const std::ptrdiff_t up = band.tap_cols;
  const std::int8_t* taps = band.taps.data() + (kBlockRows - 1) * up;
  for (const GroupRange reach : band.reach) {
    for (int col = kTapGroup * reach.first; col < kTapGroup * reach.last; col += kTapGroup) {
      const PhasePixels four = {Load(pixels + col), Load(pixels + col + 1), Load(pixels + col + 2),
                                Load(pixels + col + 3)};
      Dot_Phases(row0, four, taps + col);
      Dot_Phases(row1, four, taps + col - up);
      Dot_Phases(row2, four, taps + col - 2 * up);
      Dot_Phases(row3, four, taps + col - 3 * up);
      Dot_Phases(row4, four, taps + col - 4 * up);
      Dot_Phases(row5, four, taps + col - 5 * up);
    }
    taps += up;
    pixels += stride;
  }
  Store_Phases(row0, block.products[0]);
  Store_Phases(row1, block.products[1]);
  Store_Phases(row2, block.products[2]);
  Store_Phases(row3, block.products[3]);
  Store_Phases(row4, block.products[4]);
  Store_Phases(row5, block.products[5]);
}

/// Sums of 64 windows in interleaved order: lane k of vector m holds windows 16 k + 4 m ... 16 k +
/// 4 m + 3.
struct WovenSums {
  __m512i m0, m1, m2, m3;
};

template <bool kEnter>
SYLVOMEX_VNNI_INLINE void Add_Four(__m512i four, __m512i& sum, __m512i& squares) {
  const __m512i bias = _mm512_set1_epi8(-128);
  // v - 128, or 128 - v; the latter wraps only for v = 0, where its product is 0 anyway.
  const __m512i weight = kEnter ? _mm512_xor_si512(four, bias) : _mm512_sub_epi8(bias, four);
  Dot(sum, four, _mm512_set1_epi8(kEnter ? 1 : -1));
  Dot(squares, four, weight);
}

/// Adds or subtracts four edge pixels of each of 64 windows.
template <bool kEnter>
SYLVOMEX_VNNI_INLINE void Add_Woven(__m512i e0, __m512i e1, __m512i e2, __m512i e3, WovenSums& sums,
                                    WovenSums& squares) {
  const __m512i t0 = _mm512_unpacklo_epi8(e0, e1);
  const __m512i t1 = _mm512_unpackhi_epi8(e0, e1);
  const __m512i t2 = _mm512_unpacklo_epi8(e2, e3);
  const __m512i t3 = _mm512_unpackhi_epi8(e2, e3);
  Add_Four<kEnter>(_mm512_unpacklo_epi16(t0, t2), sums.m0, squares.m0);
  Add_Four<kEnter>(_mm512_unpackhi_epi16(t0, t2), sums.m1, squares.m1);
  Add_Four<kEnter>(_mm512_unpacklo_epi16(t1, t3), sums.m2, squares.m2);
  Add_Four<kEnter>(_mm512_unpackhi_epi16(t1, t3), sums.m3, squares.m3);
}

template <bool kEnter>
SYLVOMEX_VNNI_INLINE void Add_Pixels(const std::vector<std::int32_t>& places,
                                     const std::uint8_t* window, WovenSums& sums,
                                     WovenSums& squares) {
  const std::size_t whole = places.size() / 4 * 4;
  const std::int32_t* at = places.data();
  for (std::size_t k = 0; k < whole; k += 4) {
    Add_Woven<kEnter>(Load(window + at[k]), Load(window + at[k + 1]), Load(window + at[k + 2]),
                      Load(window + at[k + 3]), sums, squares);
  }
  const std::size_t left = places.size() - whole;
  if (left == 0) return;
  const __m512i zero = _mm512_setzero_si512();
  at += whole;
  Add_Woven<kEnter>(Load(window + at[0]), left > 1 ? Load(window + at[1]) : zero,
                    left > 2 ? Load(window + at[2]) : zero, zero, sums, squares);
}

SYLVOMEX_VNNI_INLINE WovenSums No_Sums() {
  const __m512i zero = _mm512_setzero_si512();
  return {zero, zero, zero, zero};
}

SYLVOMEX_VNNI_INLINE void Add_To(const WovenSums& woven,
                                 std::array<std::int32_t, kTileCols>& windows) {
  const __m512i lanes[4] = {woven.m0, woven.m1, woven.m2, woven.m3};
  __m512i ordered[4];
  Order_Lanes(lanes, ordered);
  for (std::size_t k = 0; k < 4; ++k) {
    std::int32_t* at = windows.data() + 16 * k;
    _mm512_store_si512(at, _mm512_add_epi32(_mm512_load_si512(at), ordered[k]));
  }
}

SYLVOMEX_VNNI void Start_Row(const MaskBand& band, const std::uint8_t* window, RowSums& row) {
  row = {};
  WovenSums sums = No_Sums();
  WovenSums squares = No_Sums();
  Add_Pixels<true>(band.all, window, sums, squares);
  Add_To(sums, row.sums);
  Add_To(squares, row.squares);
}

SYLVOMEX_VNNI void Slide_Rows(const MaskBand& band, const std::uint8_t* window, int stride,
                              RowSums& row, BlockSums& block) {
  for (RowSums& to : block.rows) {
    to = row;
    WovenSums sums = No_Sums();
    WovenSums squares = No_Sums();
    Add_Pixels<true>(band.entering, window, sums, squares);
    Add_Pixels<false>(band.leaving, window, sums, squares);
    Add_To(sums, row.sums);
    Add_To(squares, row.squares);
    window += stride;
  }
}

bool Machine_Has_Byte_Dots() {
  return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
         __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq") &&
         __builtin_cpu_supports("avx512vnni");
}

constexpr SumPath kByteDotSums = {Start_Row, Add_Products, Slide_Rows, 0.0046};

}  // namespace

const SumPath* Byte_Dot_Sums() {
  static const bool has = Machine_Has_Byte_Dots();
  return has ? &kByteDotSums : nullptr;
}

}  // namespace sylvomex

#else

namespace sylvomex {

const SumPath* Byte_Dot_Sums() { return nullptr; }

}  // namespace sylvomex
#endif
