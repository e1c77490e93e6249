// SPDX-License-Identifier: MIT
// The interpolation of the normalised image, several pixels of a row per call. The widest vector
// unit is chosen at run time; the order of operations, and so every bit, is the same on each.
#pragma once

#include <cstddef>
#include <cstdint>

#include "closedlib/source_places.h"

namespace sylvomex {

/// A source raster of 1 or 3 bytes a pixel: byte distances to the right and the lower neighbour,
/// and the last pixel behind which kVectorRoom bytes of every neighbour may be read.
struct RasterSource {
  const std::uint8_t* bytes = nullptr;
  std::size_t channels = 1;
  std::ptrdiff_t right = 0, below = 0;
  std::ptrdiff_t ahead = 0;  // from the lower neighbour to what is prefetched
  std::int64_t last_whole = 0;
};

/// Interpolates `count` pixels, at most kResampledTogether; target: their bytes.
void Interpolate_Raster(const RasterSource& source, const SourcePlaces& places, std::size_t count,
                        std::uint8_t* target);

/// Interpolates the pixels of the segments `first` to last - 1, all of which have a span of 0 or
/// more; target: their bytes.
using SegmentPath = void (*)(const RasterSource& source, const SourceSegments& segments,
                             std::size_t first, std::size_t last, std::uint8_t* target);

/// On every machine.
void Interpolate_Segments(const RasterSource& source, const SourceSegments& segments,
                          std::size_t first, std::size_t last, std::uint8_t* target);

/// The same bytes by look-up in tables of 64 bytes; nullptr where the machine has none.
SegmentPath Byte_Table_Path();

}  // namespace sylvomex
