// SPDX-License-Identifier: MIT
// Paints a picture, its bitmap and its marks, into pixels in memory, for the windows and for
// picture files. One pane pixel is one pixel.
#pragma once

#include <cstddef>
#include <cstdint>

#include "state/picture.h"

namespace sylvomex {

/// The caller's pixels, rows from the top, 0xffRRGGBB each.
struct PixelView {
  std::uint32_t* first = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;  // pixels from row to row

  [[nodiscard]] std::uint32_t* Row(int y) const { return first + y * stride; }
};

/// Pixels from (left, top) inclusive to (right, bottom) exclusive.
struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;

  [[nodiscard]] bool Is_Empty() const { return left >= right || top >= bottom; }
  bool operator==(const PixelRect&) const = default;
};

/// Colour of a pane where it has no bitmap.
inline constexpr Colour kPaneBackground{240, 240, 240};

/// The bitmap at the top left corner, background colour around it.
void Paint_Bitmap(const PixelView& pixels, const PaneBitmap* bitmap);

/// Draws the marks from index `first` on (at most their number), in order, lines in their pen
/// modes. A position is drawn at the nearest pixel, ties to even. A point of width W is a square of
/// W by W pixels, W / 2 of them above and left of its pixel; a line has round ends; a text hangs
/// below its position. NaN and infinite positions draw nothing. Returns the pixels that may have
/// changed.
PixelRect Paint_Marks(const PixelView& pixels, const Picture& picture, std::size_t first);

/// Draws the floating marks in the same way.
PixelRect Paint_Floating(const PixelView& pixels, const Picture& picture);

/// A picture as it is shown, with its marks, in the size of its bitmap; it must have one.
PaneBitmap Painted_Picture(const Picture& picture);

}  // namespace sylvomex
