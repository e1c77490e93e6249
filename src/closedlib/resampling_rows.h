// SPDX-License-Identifier: MIT
// The inner loops of the normalised image, several pixels of a row per call. The widest vector unit
// is chosen at run time; the order of operations, and so every bit, is the same on each.
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

/// A source raster of 1 or 3 bytes a pixel: byte distances to the right and the lower neighbour,
/// and the last pixel behind which kVectorRoom bytes of every neighbour may be read.
struct RasterSource {
  const std::uint8_t* bytes = nullptr;
  std::size_t channels = 1;
  std::ptrdiff_t right = 0, below = 0;
  std::ptrdiff_t ahead = 0;  // from the lower neighbour to what is prefetched
  std::int64_t last_whole = 0;
};

/// Interpolates `count` pixels; target: channels x count + kVectorRoom bytes, the last kVectorRoom
/// of which may be overwritten.
void Interpolate_Raster(const RasterSource& source, const SourcePlaces& places, std::size_t count,
                        std::uint8_t* target);

}  // namespace sylvomex
