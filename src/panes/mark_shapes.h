// SPDX-License-Identifier: MIT
// Rasterisation of points and lines.
#pragma once

#include <optional>

#include "panes/picture_painter.h"

namespace sylvomex {

std::uint32_t Pixel_Of(Colour colour);

/// Nearest pixel, ties to even. The position must stay within about 1e9 of 0.
int Nearest_Pixel(double position);

/// False for NaN and for positions too far outside for any part of the mark to touch a pane.
bool Near_The_Pane(double px, double py);

int Pen_Width(const Mark& mark);

/// Intersection of the rectangle with the pixels.
PixelRect Inside(const PixelView& pixels, const PixelRect& rect);

struct PixelLine {
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // both ends included
};

/// The part of a line inside the pixels or within a pen's width of them; std::nullopt when there is
/// none or an end is NaN or infinite (Liang and Barsky 1984).
std::optional<PixelLine> Clipped_Line(const Mark& mark, const PixelView& pixels);

/// A pixel after a pen has gone over it.
std::uint32_t Joined(PenMode mode, std::uint32_t pen, std::uint32_t pixel);

/// Both return the pixels that may have changed.
PixelRect Paint_Point(const PixelView& pixels, const Mark& mark);
PixelRect Paint_Thin_Line(const PixelView& pixels, const Mark& mark);

}  // namespace sylvomex
