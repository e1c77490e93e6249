// SPDX-License-Identifier: MIT
// The image from which an orthoimage takes its pixels.
#pragma once

#include <cstdint>
#include <span>

#include "solver/camera_model.h"

namespace sylvomex {

/// A raw file in memory, rows from the top, without padding.
struct OrthoSource {
  Camera camera;
  std::span<const std::uint8_t> bytes;
  double sub_width = 0, sub_height = 0;  // of the raw file, pixels
  int pixel_bytes = 1;                   // 3 red, green, blue; 1 grey
};

OrthoSource Make_Ortho_Source(const ImageRecord& image, const Camera& camera,
                              std::span<const std::uint8_t> bytes);

/// Byte position, counted from 0, of the pixel nearest to a full-image position (half to even in
/// both directions): round((sub_height - 1 - round(row)) sub_width pixel_bytes) +
/// round(col) pixel_bytes. Sub-image origins do not count, and a column outside the raster leads
/// into a neighbouring row.
double Byte_Position(const OrthoSource& source, const PixelPosition& pixel);

}  // namespace sylvomex
