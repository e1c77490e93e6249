// SPDX-License-Identifier: MIT
// Source positions of the normalised image's pixels, several pixels of a row per call. The widest
// vector unit is chosen at run time; the order of operations, and so every bit, is the same on
// each.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace sylvomex {

inline constexpr std::size_t kResampledTogether = 256;  // pixels of a chunk
inline constexpr std::size_t kVectorRoom = 16;          // behind them, for whole vectors
inline constexpr std::int32_t kNoSource = -1;

/// Maps a row of the target to source pixels.
struct RowProjection {
  double Xmin = 0, PixelWidth = 0;  // plane, metres
  double yn = 0;                    // the row's value
  double c = 0;
  std::array<double, 9> matrix{};
  std::array<double, 6> affine{};
  double last_col = 0, last_row = 0;  // of the source
  double last_start_col = 0;          // left one of the last two columns; 0 for a single column
  double last_start_row = 0;          // upper one of the last two rows; 0 for a single row
};

/// Where a target pixel is interpolated: index of its upper left source pixel, col + width x row
/// with rows from the top, kNoSource where there is none; weights of the right column and the lower
/// row.
struct SourcePlaces {
  alignas(64) std::array<std::int32_t, kResampledTogether + kVectorRoom> pixel{};
  alignas(64) std::array<float, kResampledTogether + kVectorRoom> right{};
  alignas(64) std::array<float, kResampledTogether + kVectorRoom> below{};
};

/// Places of `count` target pixels from column first_col on; up to one vector more is written.
void Find_Source_Places(const RowProjection& row, int first_col, std::size_t count,
                        SourcePlaces& places);

inline constexpr std::size_t kSegmentPixels = 16;
inline constexpr int kHalfSegment = 8;  // pixels
inline constexpr std::size_t kChunkSegments = kResampledTogether / kSegmentPixels;
inline constexpr std::int32_t kByPixel = -1;       // a segment whose pixels are looked at singly
inline constexpr std::int32_t kBlackSegment = -2;  // a segment that lies beside the source

/// The source pixels of a segment from its own `pixel` on: columns 0 to kSegmentReach, and the
/// right neighbour of the last.
inline constexpr int kSegmentReach = 19;

/// Segments of kSegmentPixels target pixels whose source positions follow a parabola closely
/// enough: with u = -8, -7 ... 7 along the segment they lie at the column
///     kSegmentLead[mirrored] + u (or -u, mirrored) + col + u (col_slope + u col_bend)
/// and the row
///     row + u (row_slope + u row_bend)
/// from source pixel `pixel`. `span` is how many rows the last of the pixels' upper rows lies below
/// the first, which is row 0. Where it is negative (kByPixel, kBlackSegment), nothing else is
/// valid.
///
/// A projective function of one variable with the slope s and the relative change of its
/// denominator r at u = 0 is s (u - r u^2 + r^2 u^3 - ...). |r| is limited to 3e-5, so that what
/// follows the parabola is below 6e-7 pixels, and slopes lie within kSlopeRoom of +-1 and 0, so
/// that rounding to single precision costs as little again. A grey value is wrong by less than
/// 0.0005.
struct SourceSegments {
  template <class T>
  using Each = std::array<T, kChunkSegments>;

  alignas(64) Each<std::int32_t> span{}, mirrored{}, pixel{};
  alignas(64) Each<float> col{}, col_slope{}, col_bend{};
  alignas(64) Each<float> row{}, row_slope{}, row_bend{};
};

/// From the segment's pixel to the source column of its middle: 9 or 10 pixels lie before it.
inline constexpr float kSegmentLead[2] = {10, 9};

/// The kChunkSegments segments from column first_col on.
void Find_Source_Segments(const RowProjection& row, int first_col, SourceSegments& segments);

/// Places of the pixels of some segments with a span of 0 or more; width: of the source, pixels.
void Find_Segment_Places(const SourceSegments& segments, std::size_t first, std::size_t last,
                         int width, SourcePlaces& places);

}  // namespace sylvomex
