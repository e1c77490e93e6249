// SPDX-License-Identifier: MIT
// Paints what a picture shows, its bitmap and its marks, into pixels in memory: the windows show
// them, and picture files are written from them. One pane pixel is one pixel.
#pragma once

#include <cstddef>
#include <cstdint>

#include "state/picture.h"

namespace sylvomex {

/// Pixels of the caller, rows from the top, 0xffRRGGBB each.
struct PixelView {
  std::uint32_t* first = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;  // pixels from row to row

  [[nodiscard]] std::uint32_t* Row(int y) const { return first + y * stride; }
};

/// Pixels from (left, top) up to, but not including, (right, bottom).
struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;

  [[nodiscard]] bool Is_Empty() const { return left >= right || top >= bottom; }
  bool operator==(const PixelRect&) const = default;
};

/// Grey where a pane has no bitmap.
inline constexpr Colour kPaneBackground{240, 240, 240};

/// The bitmap at the top left corner, grey beside it.
void Paint_Bitmap(const PixelView& pixels, const PaneBitmap* bitmap);

/// Draws the marks from `first` on, in their order. A position takes effect at the nearest pixel,
/// halves at the even one. A point of width W is a square of W by W pixels, W / 2 of them above
/// and left of its pixel; a line has round ends; a text hangs below its position. NaN and infinite
/// positions draw nothing. Returns the pixels that may have changed.
PixelRect Paint_Marks(const PixelView& pixels, const Picture& picture, std::size_t first);

}  // namespace sylvomex
