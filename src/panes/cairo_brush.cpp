// SPDX-License-Identifier: MIT
#include "panes/cairo_brush.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "panes/mark_shapes.h"
#include "platform/characters.h"

namespace sylvomex {
namespace {

constexpr double kPixelsOfAPoint = 96.0 / 72.0;
constexpr const char* kPlainFont = "Liberation Sans";  // substitute for "MS Sans Serif"

int Pixel_Size(const Font& font) {
  return Nearest_Pixel(std::clamp(font.size * kPixelsOfAPoint, 1.0, 1000.0));
}

void Set_Colour(cairo_t* context, Colour colour) {
  cairo_set_source_rgb(context, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
}

/// Grey-level antialiasing: the subpixel colour fringes made for LCD screens do not belong in a
/// picture.
void Set_Letter_Edges(cairo_t* context) {
  cairo_font_options_t* const options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
  cairo_set_font_options(context, options);
  cairo_font_options_destroy(options);
}

void Set_Pen(cairo_t* context) {
  cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
}

// Pen positions are pixel centres; cairo's integers are pixel corners.
void Stroke(cairo_t* context, const PixelLine& line, int width) {
  cairo_set_line_width(context, width);
  cairo_move_to(context, line.x1 + 0.5, line.y1 + 0.5);
  cairo_line_to(context, line.x2 + 0.5, line.y2 + 0.5);
  cairo_stroke(context);
}

/// The pixels that a line may touch.
PixelRect Around(const PixelLine& line, int width) {
  const auto [left, right] = std::minmax(line.x1, line.x2);
  const auto [top, bottom] = std::minmax(line.y1, line.y2);
  return {left - width, top - width, right + width + 1, bottom + width + 1};
}

/// Joins the pen to the pixels of a rectangle that a shape of its size covers.
void Join_Shape(const PixelView& pixels, const PixelRect& rect, cairo_surface_t& shape,
                const Mark& mark) {
  const unsigned char* row = cairo_image_surface_get_data(&shape);
  if (row == nullptr) return;  // no memory for the shape
  const std::uint32_t pen = Pixel_Of(mark.colour);
  for (int y = rect.top; y < rect.bottom; ++y, row += cairo_image_surface_get_stride(&shape)) {
    std::uint32_t* const pixel = pixels.Row(y) + rect.left;
    for (int x = 0; x < rect.right - rect.left; ++x) {
      if (row[x] != 0) pixel[x] = Joined(mark.mode, pen, pixel[x]);
    }
  }
}

}  // namespace

cairo_t* CairoBrush::Take_Up() {
  if (!context_) {
    const std::ptrdiff_t bytes_a_row = pixels_.stride * std::ptrdiff_t{sizeof(std::uint32_t)};
    surface_.reset(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(pixels_.first), CAIRO_FORMAT_RGB24, pixels_.width,
        pixels_.height, static_cast<int>(bytes_a_row)));
    context_.reset(cairo_create(surface_.get()));
    Set_Pen(context_.get());
    Set_Letter_Edges(context_.get());
  }
  cairo_surface_mark_dirty(surface_.get());
  return context_.get();
}

void CairoBrush::Lay_Down() { cairo_surface_flush(surface_.get()); }

void CairoBrush::Choose(const Font& font) {
  if (has_font_ && font == font_) return;
  const char* const face = font.name == "MS Sans Serif" ? kPlainFont : font.name.c_str();
  cairo_select_font_face(context_.get(), face, CAIRO_FONT_SLANT_NORMAL,
                         font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context_.get(), Pixel_Size(font));
  font_ = font;
  has_font_ = true;
}

PixelRect CairoBrush::Paint_Line(const Mark& mark) {
  const auto line = Clipped_Line(mark, pixels_);
  if (!line) return {};
  const int width = Pen_Width(mark);
  cairo_t* const context = Take_Up();
  Set_Colour(context, mark.colour);
  Stroke(context, *line, width);
  Lay_Down();
  return Around(*line, width);
}

PixelRect CairoBrush::Join_Line(const Mark& mark) {
  const auto line = Clipped_Line(mark, pixels_);
  if (!line) return {};
  const int width = Pen_Width(mark);
  const PixelRect rect = Inside(pixels_, Around(*line, width));
  if (rect.Is_Empty()) return {};
  const Surface shape(
      cairo_image_surface_create(CAIRO_FORMAT_A8, rect.right - rect.left, rect.bottom - rect.top));
  const Context context(cairo_create(shape.get()));
  Set_Pen(context.get());
  cairo_translate(context.get(), -rect.left, -rect.top);
  Stroke(context.get(), *line, width);
  cairo_surface_flush(shape.get());
  Join_Shape(pixels_, rect, *shape, mark);
  return rect;
}

PixelRect CairoBrush::Room_Of_Text(const Mark& mark, const MarkText& printed) {
  if (!Near_The_Pane(mark.x1, mark.y1)) return {};
  cairo_t* const context = Take_Up();
  Choose(printed.font);
  cairo_font_extents_t line;
  cairo_text_extents_t ink;
  cairo_font_extents(context, &line);
  cairo_text_extents(context, As_Utf8(printed.text).c_str(), &ink);
  constexpr int kBlur = 2;  // pixels around the ink that hinting and antialiasing may touch
  const double ink_left = Nearest_Pixel(mark.x1) + ink.x_bearing;
  const double ink_top = Nearest_Pixel(mark.y1) + std::ceil(line.ascent) + ink.y_bearing;
  return {static_cast<int>(std::floor(ink_left)) - kBlur,
          static_cast<int>(std::floor(ink_top)) - kBlur,
          static_cast<int>(std::ceil(ink_left + ink.width)) + kBlur,
          static_cast<int>(std::ceil(ink_top + ink.height)) + kBlur};
}

PixelRect CairoBrush::Paint_Text(const Mark& mark, const MarkText& printed) {
  const PixelRect room = Room_Of_Text(mark, printed);
  if (room.Is_Empty()) return {};
  cairo_t* const context = Take_Up();
  cairo_font_extents_t line;
  cairo_font_extents(context, &line);
  Set_Colour(context, mark.colour);
  cairo_move_to(context, Nearest_Pixel(mark.x1), Nearest_Pixel(mark.y1) + std::ceil(line.ascent));
  cairo_show_text(context, As_Utf8(printed.text).c_str());
  Lay_Down();
  return room;
}

}  // namespace sylvomex
