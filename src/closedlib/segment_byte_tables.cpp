// SPDX-License-Identifier: MIT
// Segments interpolated by look-up: the source pixels of a segment lie in three rows of 64 bytes
// each, and the four neighbours of every target byte come out of two of them at a time. Nothing
// branches on the positions, unless a segment crosses more than two pairs of rows.
#include "closedlib/resampling_rows.h"

#if defined(__x86_64__) && defined(__GNUC__)
#if !defined(__clang__)
// g++ 12 warns about the undefined operand inside its own intrinsics (PR 105593).
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>

#define SYLVOMEX_TABLES \
  __attribute__((target("avx512f,avx512bw,avx512vl,avx512dq,avx512vbmi,bmi2")))
#define SYLVOMEX_TABLES_INLINE SYLVOMEX_TABLES inline __attribute__((always_inline))

namespace sylvomex {
namespace {

constexpr int kSegment = kSegmentPixels;

constexpr int kTableRow = 64;  // bytes, a power of two

// A segment's target bytes in turn lie in the lowest, second and third places of the 16 lanes.
constexpr int kLaneBytes = 4;

/// What the target bytes are looked up by: each one's pixel (as the place of the index's lowest
/// byte in a vector of 16, and as its lane) and channel.
template <int kChannels>
struct ByteOrder {
  ByteOrder() {
    for (int at = 0; at < kChannels * kSegment; ++at) {
      const int lane = at % kSegment, place = at / kSegment;
      pixel[place][lane] = at / kChannels;
      index[kLaneBytes * lane + place] = static_cast<std::uint8_t>(kLaneBytes * (at / kChannels));
      channel[kLaneBytes * lane + place] = static_cast<std::uint8_t>(at % kChannels);
    }
    for (int u = 0; u < kSegment; ++u) {
      const auto along = static_cast<float>(u - kHalfSegment);
      across[0][u] = static_cast<float>(kChannels) * (kSegmentLead[0] + along);
      across[1][u] = static_cast<float>(kChannels) * (kSegmentLead[1] - along);
    }
  }
  alignas(64) std::int32_t pixel[kChannels][kSegment];
  alignas(64) std::uint8_t index[kTableRow] = {};
  alignas(64) std::uint8_t channel[kTableRow] = {};
  alignas(64) float across[2][kSegment];  // bytes from a table row's start, straight and mirrored
};

/// The lowest bytes of the lanes of two vectors side by side, then those of a third behind them.
struct PackOrder {
  PackOrder() {
    for (int at = 0; at < kTableRow; ++at) {
      two[at] = static_cast<std::uint8_t>(kLaneBytes * at);
      third[at] = static_cast<std::uint8_t>(
          at < 2 * kSegment ? at : kTableRow + kLaneBytes * (at % kSegment));
    }
  }
  alignas(64) std::uint8_t two[kTableRow];
  alignas(64) std::uint8_t third[kTableRow];
};

struct TableRows {
  __m512i first, second, third;
};

SYLVOMEX_TABLES_INLINE TableRows Load_Rows(const std::uint8_t* at, std::ptrdiff_t below) {
  return {_mm512_loadu_si512(at), _mm512_loadu_si512(at + below),
          _mm512_loadu_si512(at + 2 * below)};
}

SYLVOMEX_TABLES_INLINE __m512 Parabola(float at, float slope, float bend, __m512 u) {
  const __m512 tangent =
      _mm512_add_ps(_mm512_set1_ps(slope), _mm512_mul_ps(u, _mm512_set1_ps(bend)));
  return _mm512_add_ps(_mm512_set1_ps(at), _mm512_mul_ps(u, tangent));
}

SYLVOMEX_TABLES_INLINE __m512 Floor(__m512 value) {
  return _mm512_roundscale_ps(value, _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
}

/// Pixels of a segment: byte of the upper left neighbour in the table's first two rows, to which
/// the places of rows 2 and 3 come back; and how far each pixel lies to the right and below.
struct PixelPlaces {
  __m512i index;
  __m512 right, below;
  __m512 upper;  // row
};

template <int kChannels>
SYLVOMEX_TABLES_INLINE PixelPlaces Places_Of(const SourceSegments& segments, std::size_t s,
                                             __m512 u, const ByteOrder<kChannels>& order) {
  const __m512 col = Parabola(segments.col[s], segments.col_slope[s], segments.col_bend[s], u);
  const __m512 row = Parabola(segments.row[s], segments.row_slope[s], segments.row_bend[s], u);
  const __m512 left = Floor(col);
  const __m512 upper = _mm512_min_ps(_mm512_max_ps(Floor(row), _mm512_setzero_ps()),
                                     _mm512_cvtepi32_ps(_mm512_set1_epi32(segments.span[s])));
  const __m512 across = _mm512_load_ps(order.across[segments.mirrored[s]]);
  const __m512 from_left =
      _mm512_add_ps(across, _mm512_mul_ps(left, _mm512_set1_ps(static_cast<float>(kChannels))));
  const __m512 from_start =
      _mm512_add_ps(from_left, _mm512_mul_ps(upper, _mm512_set1_ps(float{kTableRow})));
  return {_mm512_cvtps_epi32(from_start), _mm512_sub_ps(col, left), _mm512_sub_ps(row, upper),
          upper};
}

/// The four neighbours of each target byte, in its place of a lane.
struct Neighbours {
  __m512i upper_left, upper_right, lower_left, lower_right;
};

template <int kChannels>
SYLVOMEX_TABLES_INLINE Neighbours Neighbours_Of(const TableRows& rows, const PixelPlaces& places,
                                                const ByteOrder<kChannels>& order) {
  const __m512i pixel = _mm512_permutexvar_epi8(_mm512_load_si512(order.index), places.index);
  const __m512i left = _mm512_add_epi8(pixel, _mm512_load_si512(order.channel));
  const __m512i right = _mm512_add_epi8(left, _mm512_set1_epi8(kChannels));
  return {_mm512_permutex2var_epi8(rows.first, left, rows.second),
          _mm512_permutex2var_epi8(rows.first, right, rows.second),
          _mm512_permutex2var_epi8(rows.second, left, rows.third),
          _mm512_permutex2var_epi8(rows.second, right, rows.third)};
}

/// A byte in the lowest place of a single with the exponent of 2^23 is the number 2^23 + byte, one
/// in the second place with that of 2^15 the number 2^15 + byte.
template <int kPlace>
struct ByteNumbers {
  static constexpr float kOffset = kPlace == 1 ? 32768.0F : 8388608.0F;
  static constexpr int kExponent = kPlace == 1 ? 0x47000000 : 0x4B000000;
  static constexpr int kByte = kPlace == 1 ? 0xFF00 : 0xFF;

  static SYLVOMEX_TABLES_INLINE __m512 Of(__m512i lanes) {
    constexpr int kAndOr = 0xEA;  // (a and b) or c
    if constexpr (kPlace == 2) lanes = _mm512_srli_epi32(lanes, 16);
    return _mm512_castsi512_ps(_mm512_ternarylogic_epi32(lanes, _mm512_set1_epi32(kByte),
                                                         _mm512_set1_epi32(kExponent), kAndOr));
  }

  /// a + weight (b - a).
  static SYLVOMEX_TABLES_INLINE __m512 Between(__m512i a, __m512i b, __m512 weight) {
    const __m512 from = Of(a);
    const __m512 step = _mm512_mul_ps(weight, _mm512_sub_ps(Of(b), from));
    return _mm512_add_ps(_mm512_sub_ps(from, _mm512_set1_ps(kOffset)), step);
  }
};

/// The target bytes of one place, each in the lowest byte of its lane.
template <int kPlace, int kChannels>
SYLVOMEX_TABLES_INLINE __m512i Interpolated(const Neighbours& bytes, const PixelPlaces& places,
                                            const ByteOrder<kChannels>& order) {
  using Numbers = ByteNumbers<kPlace>;
  const __m512i pixel = _mm512_load_si512(order.pixel[kPlace]);
  const __m512 right = _mm512_permutexvar_ps(pixel, places.right);
  const __m512 below = _mm512_permutexvar_ps(pixel, places.below);
  const __m512 upper = Numbers::Between(bytes.upper_left, bytes.upper_right, right);
  const __m512 lower = Numbers::Between(bytes.lower_left, bytes.lower_right, right);
  const __m512 value = _mm512_add_ps(upper, _mm512_mul_ps(below, _mm512_sub_ps(lower, upper)));
  return _mm512_castps_si512(_mm512_add_ps(value, _mm512_set1_ps(ByteNumbers<0>::kOffset)));
}

template <int kChannels>
SYLVOMEX_TABLES_INLINE __m512i Packed(const TableRows& rows, const PixelPlaces& places,
                                      const ByteOrder<kChannels>& order, const PackOrder& pack) {
  const Neighbours bytes = Neighbours_Of(rows, places, order);
  const __m512i first = Interpolated<0>(bytes, places, order);
  if constexpr (kChannels == 1) {
    return _mm512_castsi128_si512(_mm512_cvtepi32_epi8(first));
  } else {
    const __m512i second = Interpolated<1>(bytes, places, order);
    const __m512i third = Interpolated<2>(bytes, places, order);
    const __m512i two = _mm512_permutex2var_epi8(first, _mm512_load_si512(pack.two), second);
    return _mm512_permutex2var_epi8(two, _mm512_load_si512(pack.third), third);
  }
}

/// Bytes of the pixels whose upper row is `row` or lower.
template <int kChannels>
SYLVOMEX_TABLES_INLINE __mmask64 Bytes_From(__m512 upper, int row) {
  const __mmask16 pixels =
      _mm512_cmp_ps_mask(upper, _mm512_set1_ps(static_cast<float>(row)), _CMP_GE_OQ);
  return kChannels == 1 ? pixels : _pdep_u64(pixels, 0x249249249249) * 7;
}

template <int kChannels>
SYLVOMEX_TABLES_INLINE void Store(__m512i bytes, std::uint8_t* target) {
  if constexpr (kChannels == 1) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm512_castsi512_si128(bytes));
  } else {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(target), _mm512_castsi512_si256(bytes));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target + 32), _mm512_extracti32x4_epi32(bytes, 2));
  }
}

template <int kChannels>
SYLVOMEX_TABLES void Interpolate(const RasterSource& source, const SourceSegments& segments,
                                 std::size_t first, std::size_t last, std::uint8_t* target) {
  static const ByteOrder<kChannels> order;
  static const PackOrder pack;
  const __m512 u = _mm512_set_ps(7, 6, 5, 4, 3, 2, 1, 0, -1, -2, -3, -4, -5, -6, -7, -8);
  for (std::size_t s = first; s < last; ++s, target += kChannels * kSegment) {
    const PixelPlaces places = Places_Of(segments, s, u, order);
    const std::uint8_t* at = source.bytes + std::ptrdiff_t{kChannels} * segments.pixel[s];
    _mm_prefetch(at + source.below + source.ahead, _MM_HINT_T0);
    __m512i bytes = Packed(Load_Rows(at, source.below), places, order, pack);
    for (int row = 2; row <= segments.span[s]; row += 2) {
      const __m512i lower =
          Packed(Load_Rows(at + row * source.below, source.below), places, order, pack);
      bytes = _mm512_mask_blend_epi8(Bytes_From<kChannels>(places.upper, row), bytes, lower);
    }
    Store<kChannels>(bytes, target);
  }
}

void Interpolate_By_Tables(const RasterSource& source, const SourceSegments& segments,
                           std::size_t first, std::size_t last, std::uint8_t* target) {
  const auto interpolate = source.channels == 1 ? Interpolate<1> : Interpolate<3>;
  interpolate(source, segments, first, last, target);
}

bool Machine_Has_Byte_Tables() {
  return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
         __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq") &&
         __builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("bmi2");
}

}  // namespace

SegmentPath Byte_Table_Path() {
  return Machine_Has_Byte_Tables() ? Interpolate_By_Tables : nullptr;
}

}  // namespace sylvomex

#else

namespace sylvomex {

SegmentPath Byte_Table_Path() { return nullptr; }

}  // namespace sylvomex
#endif
