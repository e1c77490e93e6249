// SPDX-License-Identifier: MIT
#include "panes/picture_painter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>
#include <vector>

#include "panes/cairo_brush.h"
#include "panes/label_room.h"
#include "panes/mark_shapes.h"

namespace sylvomex {
namespace {

PixelRect United(const PixelRect& a, const PixelRect& b) {
  if (a.Is_Empty()) return b;
  if (b.Is_Empty()) return a;
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
}

/// Four bytes are loaded at once: blue, green and red lie where the pixel wants them, and the byte
/// of the next pixel becomes the opaque one. The last pixel has no byte behind it.
std::uint32_t* Paint_Row(std::uint32_t* to, const std::uint8_t* bgr, int count) {
  static_assert(std::endian::native == std::endian::little);
  if (count <= 0) return to;
  for (int x = 0; x < count - 1; ++x, bgr += 3) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, bgr, sizeof pixel);
    *to++ = pixel | 0xff000000U;
  }
  *to++ = Pixel_Of({bgr[2], bgr[1], bgr[0]});
  return to;
}

PixelRect Paint_Line(const PixelView& pixels, CairoBrush& brush, const Mark& mark) {
  if (mark.width <= 1) return Paint_Thin_Line(pixels, mark);
  return mark.mode == PenMode::CopyPen ? brush.Paint_Line(mark) : brush.Join_Line(mark);
}

/// Points and thin lines are written directly into the pixels; cairo is set up only when a mark
/// needs it.
PixelRect Paint_Mark(const PixelView& pixels, CairoBrush& brush, const Picture& picture,
                     const Mark& mark) {
  switch (mark.kind) {
    case Mark::Kind::Point:
      return Paint_Point(pixels, mark);
    case Mark::Kind::Line:
      return Paint_Line(pixels, brush, mark);
    case Mark::Kind::Text:
      return brush.Paint_Text(mark, picture.texts.at(static_cast<std::size_t>(mark.text)));
  }
  return {};
}

PixelRect Paint(const PixelView& pixels, const Picture& picture, std::span<const Mark> marks) {
  CairoBrush brush(pixels);
  PixelRect touched;
  for (const Mark& mark : marks) {
    touched = United(touched, Paint_Mark(pixels, brush, picture, mark));
  }
  return Inside(pixels, touched);
}

}  // namespace

void Paint_Bitmap(const PixelView& pixels, const PaneBitmap* bitmap) {
  const int width = bitmap == nullptr ? 0 : std::min(bitmap->width, pixels.width);
  const int height = bitmap == nullptr ? 0 : std::min(bitmap->height, pixels.height);
  for (int y = 0; y < pixels.height; ++y) {
    std::uint32_t* rest = pixels.Row(y);
    if (y < height) {
      const std::ptrdiff_t row = std::ptrdiff_t{y} * bitmap->width;
      rest = Paint_Row(rest, bitmap->bgr.data() + 3 * row, width);
    }
    std::fill(rest, pixels.Row(y) + pixels.width, Pixel_Of(kPaneBackground));
  }
}

PixelRect Paint_Marks(const PixelView& pixels, const Picture& picture, std::size_t first) {
  return Paint(pixels, picture, std::span(picture.marks).subspan(first));
}

PixelRect Paint_Marks_Thinned(const PixelView& pixels, const Picture& picture, std::size_t first,
                              LabelRoom& room) {
  CairoBrush brush(pixels);
  PixelRect touched;
  for (const Mark& mark : std::span(picture.marks).subspan(first)) {
    const bool is_crowded =
        mark.kind == Mark::Kind::Text &&
        !room.Take(brush.Room_Of_Text(mark, picture.texts.at(static_cast<std::size_t>(mark.text))));
    if (!is_crowded) touched = United(touched, Paint_Mark(pixels, brush, picture, mark));
  }
  return Inside(pixels, touched);
}

PixelRect Paint_Floating(const PixelView& pixels, const Picture& picture) {
  return Paint(pixels, picture, picture.floating);
}

PaneBitmap Painted_Picture(const Picture& picture) {
  PaneBitmap painted = *picture.bitmap;
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(painted.width) * painted.height);
  const PixelView view{pixels.data(), painted.width, painted.height, painted.width};
  Paint_Bitmap(view, &painted);
  Paint_Marks(view, picture, 0);
  Paint_Floating(view, picture);
  std::uint8_t* to = painted.bgr.data();
  for (const std::uint32_t pixel : pixels) {
    *to++ = static_cast<std::uint8_t>(pixel & 0xffU);
    *to++ = static_cast<std::uint8_t>(pixel >> 8U & 0xffU);
    *to++ = static_cast<std::uint8_t>(pixel >> 16U & 0xffU);
  }
  return painted;
}

}  // namespace sylvomex
