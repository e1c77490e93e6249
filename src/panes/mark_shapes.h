// SPDX-License-Identifier: MIT
// Points and lines of a pane as pixels.
#pragma once

#include <optional>

#include "panes/picture_painter.h"

namespace sylvomex {

std::uint32_t Pixel_Of(Colour colour);

/// Nearest pixel, halves to the even one. The position is no more than some 1e9 from 0.
int Nearest_Pixel(double position);

/// False for NaN and for what lies so far outside that nothing of it can touch a pane.
bool Near_The_Pane(double px, double py);

int Pen_Width(const Mark& mark);

/// What of the rectangle lies in the pixels.
PixelRect Inside(const PixelView& pixels, const PixelRect& rect);

struct PixelLine {
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // both ends belong to the line
};

/// The part of a line that lies in the pixels or a pen's width beside them; nothing when none does
/// or an end is NaN or infinite (Liang and Barsky 1984).
std::optional<PixelLine> Clipped_Line(const Mark& mark, const PixelView& pixels);

/// Both return the pixels that may have changed.
PixelRect Paint_Point(const PixelView& pixels, const Mark& mark);
PixelRect Paint_Thin_Line(const PixelView& pixels, const Mark& mark);

}  // namespace sylvomex
