// SPDX-License-Identifier: MIT
// The inner loops of the normalised image, some pixels of a row a call. The widest vector unit is
// chosen at run time; the order of operations is the same on every one, so are the bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace sylvomex {

inline constexpr std::size_t kResampledTogether = 256;  // pixels of a chunk
inline constexpr std::int32_t kNoSource = -1;

/// From a row of the target to source pixels.
struct RowProjection {
  double Xmin = 0, PixelWidth = 0;  // plane, metres
  double yn = 0;                    // of the row
  double c = 0;
  std::array<double, 9> matrix{};
  std::array<double, 6> affine{};
  double last_col = 0, last_row = 0;  // of the source
  double last_start_col = 0;          // the left one of the last two columns, 0 for one column
  double last_start_row = 0;          // likewise
};

/// Where a target pixel is interpolated: its upper left source pixel, col + width x row with rows
/// from the top, kNoSource where there is none; weights of the right column and the lower row.
struct SourcePlaces {
  alignas(64) std::array<std::int32_t, kResampledTogether> pixel;
  alignas(64) std::array<float, kResampledTogether> right;
  alignas(64) std::array<float, kResampledTogether> below;
};

/// Places of `count` target pixels from column first_col on; up to a vector more are written.
void Find_Source_Places(const RowProjection& row, int first_col, std::size_t count,
                        SourcePlaces& places);

/// A source raster of three bytes a pixel: distances to the right and the lower neighbour in
/// bytes, and the last pixel from which 4 bytes of every neighbour can be read.
struct ColourSource {
  const std::uint8_t* bytes = nullptr;
  std::ptrdiff_t right = 0, below = 0;
  std::int32_t last_whole = 0;
};

/// Interpolates `count` pixels; target: 3 count + 1 bytes, the last one is overwritten.
void Interpolate_Colour(const ColourSource& source, const SourcePlaces& places, std::size_t count,
                        std::uint8_t* target);

}  // namespace sylvomex
