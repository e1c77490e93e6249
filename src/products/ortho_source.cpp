// SPDX-License-Identifier: MIT
#include "products/ortho_source.h"

#include "platform/rounding.h"

namespace sylvomex {

OrthoSource Make_Ortho_Source(const ImageRecord& image, const Camera& camera,
                              std::span<const std::uint8_t> bytes) {
  return {camera, bytes, image.SubWidth, image.SubHeight, image.ColorFlag == 1 ? 3 : 1};
}

double Byte_Position(const OrthoSource& source, const PixelPosition& pixel) {
  const double rows_above = source.sub_height - 1 - Round_Half_Even(pixel.row);
  return Round_Half_Even(rows_above * source.sub_width * source.pixel_bytes) +
         Round_Half_Even(pixel.col) * source.pixel_bytes;
}

}  // namespace sylvomex
