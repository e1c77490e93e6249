// SPDX-License-Identifier: MIT
#include "session/picture_png.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/run_time_error.h"

namespace sylvomex {

namespace {

constexpr int kBorders = 4;          // pixels, both sides of a pane together
constexpr int kLargestSide = 16384;  // pixels
constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr Colour kBackground{240, 240, 240};

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

struct ContextDeleter {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Context = std::unique_ptr<cairo_t, ContextDeleter>;

struct Size {
  int width = 0;
  int height = 0;
};

Size Inner_Size(const Picture& picture) {
  const Size inner{static_cast<int>(std::lround(picture.Width)) - kBorders,
                   static_cast<int>(std::lround(picture.Height)) - kBorders};
  if (inner.width > 0 && inner.height > 0) return inner;
  if (picture.bitmap) return {picture.bitmap->width, picture.bitmap->height};
  return {};
}

void Set_Colour(cairo_t* context, Colour colour) {
  cairo_set_source_rgb(context, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
}

/// A copy of the bitmap as a surface.
Surface Bitmap_Surface(const PaneBitmap& bitmap) {
  Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, bitmap.width, bitmap.height));
  unsigned char* const pixels = cairo_image_surface_get_data(surface.get());
  if (pixels == nullptr) return surface;
  const int stride = cairo_image_surface_get_stride(surface.get());
  const std::uint8_t* source = bitmap.bgr.data();
  for (int y = 0; y < bitmap.height; ++y) {
    auto* const row = reinterpret_cast<std::uint32_t*>(pixels + std::ptrdiff_t{y} * stride);
    for (int x = 0; x < bitmap.width; ++x, source += 3) {
      row[x] = std::uint32_t{source[2]} << 16U | std::uint32_t{source[1]} << 8U | source[0];
    }
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

void Paint_Point(cairo_t* context, const Mark& mark) {
  const int reach = mark.width / 2;
  cairo_rectangle(context, std::round(mark.x1) - reach, std::round(mark.y1) - reach, mark.width,
                  mark.width);
  cairo_fill(context);
}

/// Pen positions are pixel centres.
void Paint_Line(cairo_t* context, const Mark& mark) {
  cairo_set_line_width(context, mark.width);
  cairo_move_to(context, mark.x1 + 0.5, mark.y1 + 0.5);
  cairo_line_to(context, mark.x2 + 0.5, mark.y2 + 0.5);
  cairo_stroke(context);
}

void Paint_Text(cairo_t* context, const Mark& mark, const MarkText& printed) {
  cairo_select_font_face(context, printed.font.name.c_str(), CAIRO_FONT_SLANT_NORMAL,
                         printed.font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context, printed.font.size * kPixelsPerPoint);
  cairo_font_extents_t extents;
  cairo_font_extents(context, &extents);
  cairo_move_to(context, mark.x1, mark.y1 + extents.ascent);
  cairo_show_text(context, printed.text.c_str());
}

void Paint_Mark(cairo_t* context, const Picture& picture, const Mark& mark) {
  Set_Colour(context, mark.colour);
  switch (mark.kind) {
    case Mark::Kind::Point:
      return Paint_Point(context, mark);
    case Mark::Kind::Line:
      return Paint_Line(context, mark);
    case Mark::Kind::Text:
      return Paint_Text(context, mark, picture.texts.at(static_cast<std::size_t>(mark.text)));
  }
}

void Paint_Picture(cairo_t* context, const Picture& picture) {
  Set_Colour(context, kBackground);
  cairo_paint(context);
  if (picture.bitmap) {
    const Surface bitmap = Bitmap_Surface(*picture.bitmap);
    cairo_set_source_surface(context, bitmap.get(), 0, 0);
    cairo_paint(context);
  }
  cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  for (const Mark& mark : picture.marks) Paint_Mark(context, picture, mark);
}

}  // namespace

void Save_Picture_Png(const Picture& picture, const std::filesystem::path& file) {
  const Size size = Inner_Size(picture);
  if (std::min(size.width, size.height) < 1 || std::max(size.width, size.height) > kLargestSide) {
    throw RunTimeError(Failure::BadContent, "the picture has no size that an image can have");
  }
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
  const Context context(cairo_create(surface.get()));
  Paint_Picture(context.get(), picture);
  const cairo_status_t drawn = cairo_status(context.get());
  const cairo_status_t written = drawn != CAIRO_STATUS_SUCCESS
                                     ? drawn
                                     : cairo_surface_write_to_png(surface.get(), file.c_str());
  if (written != CAIRO_STATUS_SUCCESS) {
    throw RunTimeError(Failure::FileFailure, file.string() + ": " + cairo_status_to_string(written),
                       file);
  }
}

}  // namespace sylvomex
