// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace sylvomex {

/// One normalised raster and the window cut from it. Rows from the top, columns from the left, both
/// from 0; the window may extend beyond the raster.
struct AnaglyphSide {
  std::span<const std::uint8_t> bytes;
  std::int32_t width = 0, height = 0;  // of the raster, pixels
  bool colour = false;                 // red, green, blue bytes; otherwise one grey byte
  std::int32_t first_row = 0, first_col = 0;
};

/// Composes a red and cyan picture of width x height pixels: red from the left window, green and
/// blue from the right one; black outside a raster. bgr: blue, green, red bytes, rows from the
/// top. RunTimeError(SubscriptOutOfRange) when a span is too short.
void MYFUNC_CREATEBMP(const AnaglyphSide& left, const AnaglyphSide& right, std::int32_t width,
                      std::int32_t height, std::span<std::uint8_t> bgr);

}  // namespace sylvomex
