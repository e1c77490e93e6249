// SPDX-License-Identifier: MIT
#include "session/picture_vectors.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "imageblock/pane_view.h"
#include "panes/picture_painter.h"
#include "panes/shown_raster.h"
#include "platform/characters.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "solver/camera_model.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kBorders = 4;                      // pixels, as of the pictures in PNG
constexpr double kPixelsOfAPoint = 96.0 / 72.0;  // of a font
constexpr double kPointsOfAPixel = 72.0 / 96.0;  // of the page
constexpr double kBarMargin = 12, kBarHeight = 5, kBarLetters = 13;  // pixels

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct ContextDeleter {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;
using Context = std::unique_ptr<cairo_t, ContextDeleter>;

struct Size {
  int width = 0, height = 0;
};

Size Inner_Size(const Picture& picture) {
  const Size inner{static_cast<int>(std::lround(picture.Width)) - kBorders,
                   static_cast<int>(std::lround(picture.Height)) - kBorders};
  if (inner.width > 0 && inner.height > 0) return inner;
  if (picture.bitmap) return {picture.bitmap->width, picture.bitmap->height};
  throw RunTimeError(Failure::BadContent, "the picture has no size that a page can have");
}

void Set_Colour(cairo_t* context, Colour colour) {
  cairo_set_source_rgb(context, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
}

/// The surface owns its pixels, since the page may copy them later.
void Draw_Bitmap(cairo_t* context, Size size, const Picture& picture) {
  const Surface image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
  auto* const first = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(image.get()));
  if (first == nullptr) return;  // cairo reports the error when the page is finished
  const int stride = cairo_image_surface_get_stride(image.get()) / 4;
  cairo_surface_flush(image.get());
  Paint_Bitmap({first, size.width, size.height, stride}, picture.bitmap.get());
  cairo_surface_mark_dirty(image.get());
  cairo_set_source_surface(context, image.get(), 0, 0);
  cairo_paint(context);
}

/// A point of width W covers W by W pixels, W / 2 of them left of and above its pixel.
void Draw_Point(cairo_t* context, const Mark& mark) {
  const int width = std::max<int>(1, mark.width);
  const double before = width / 2;  // NOLINT(bugprone-integer-division): whole pixels
  cairo_rectangle(context, std::nearbyint(mark.x1) - before, std::nearbyint(mark.y1) - before,
                  width, width);
  cairo_fill(context);
}

void Draw_Line(cairo_t* context, const Mark& mark) {
  cairo_set_operator(context,
                     mark.mode == PenMode::CopyPen ? CAIRO_OPERATOR_OVER : CAIRO_OPERATOR_MULTIPLY);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_width(context, std::max<int>(1, mark.width));
  cairo_move_to(context, mark.x1 + 0.5, mark.y1 + 0.5);
  cairo_line_to(context, mark.x2 + 0.5, mark.y2 + 0.5);
  cairo_stroke(context);
  cairo_set_operator(context, CAIRO_OPERATOR_OVER);
}

void Draw_Text(cairo_t* context, const Mark& mark, const MarkText& printed) {
  const char* const face =
      printed.font.name == "MS Sans Serif" ? "Liberation Sans" : printed.font.name.c_str();
  cairo_select_font_face(context, face, CAIRO_FONT_SLANT_NORMAL,
                         printed.font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context, std::clamp(printed.font.size * kPixelsOfAPoint, 1.0, 1000.0));
  cairo_font_extents_t line;
  cairo_font_extents(context, &line);
  cairo_move_to(context, mark.x1, mark.y1 + line.ascent);
  cairo_show_text(context, As_Utf8(printed.text).c_str());
}

bool Is_Near(const Mark& mark) {
  constexpr double kFar = 1e6;  // pixels; also false for NaN
  return std::abs(mark.x1) < kFar && std::abs(mark.y1) < kFar && std::abs(mark.x2) < kFar &&
         std::abs(mark.y2) < kFar;
}

void Draw_Marks(cairo_t* context, const Picture& picture, const std::vector<Mark>& marks) {
  for (const Mark& mark : marks) {
    if (!Is_Near(mark)) continue;
    Set_Colour(context, mark.colour);
    if (mark.kind == Mark::Kind::Point) Draw_Point(context, mark);
    if (mark.kind == Mark::Kind::Line) Draw_Line(context, mark);
    if (mark.kind == Mark::Kind::Text) {
      Draw_Text(context, mark, picture.texts.at(static_cast<std::size_t>(mark.text)));
    }
  }
}

/// White with a black rim, so that it shows on any ground.
void Draw_Bar(cairo_t* context, Size size, const ScaleBar& bar) {
  const double top = size.height - kBarMargin - kBarHeight;
  cairo_rectangle(context, kBarMargin, top, bar.pixels, kBarHeight);
  cairo_set_source_rgb(context, 1, 1, 1);
  cairo_fill_preserve(context);
  cairo_set_source_rgb(context, 0, 0, 0);
  cairo_set_line_width(context, 1);
  cairo_stroke(context);
  cairo_select_font_face(context, "Liberation Sans", CAIRO_FONT_SLANT_NORMAL,
                         CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context, kBarLetters);
  cairo_move_to(context, kBarMargin, top - kBarHeight);
  cairo_text_path(context, bar.Text().c_str());
  cairo_set_line_width(context, 3);
  cairo_stroke_preserve(context);
  cairo_set_source_rgb(context, 1, 1, 1);
  cairo_fill(context);
}

std::string Ending_Of(const std::filesystem::path& file) {
  std::string ending = file.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return ending;
}

Surface New_Surface(const std::filesystem::path& file, Size size) {
  const double width = size.width * kPointsOfAPixel;
  const double height = size.height * kPointsOfAPixel;
  return Surface(Ending_Of(file) == ".pdf" ? cairo_pdf_surface_create(file.c_str(), width, height)
                                           : cairo_svg_surface_create(file.c_str(), width, height));
}

}  // namespace

std::string ScaleBar::Text() const { return Plain_Text(metres) + " m"; }

ScaleBar Scale_Bar_For(double pixels_of_a_metre, double width) {
  const double most = width / 4 / pixels_of_a_metre;
  const double power = std::pow(10, std::floor(std::log10(most)));
  const double steps = most / power;
  const double metres = steps >= 5 ? 5 * power : steps >= 2 ? 2 * power : power;
  return {metres, metres * pixels_of_a_metre};
}

std::optional<ScaleBar> Scale_Bar_Of(const Workspace& w, const Picture& picture) {
  if (!w.SolutionValid || picture.bitmap == nullptr) return std::nullopt;
  for (int k = 0; k < w.ImageCount; ++k) {
    if (&w.Form1.Picture1(k) != &picture || w.PaneViews(k).ZoomX == 0 || Shows_Correlation(w, k)) {
      continue;
    }
    const double width = picture.Width - kBorders;
    const double middle = (picture.Height - kBorders) / 2;
    const auto ground = [&](double px) {
      const PixelPosition pixel = Pane_To_Full_Image(w.ImageBlock(k), w.PaneViews(k), px, middle);
      const Camera camera = Camera_Of(w, k);
      return Image_To_Object_At_Z(camera, w.Solution3D.Z, Pixel_To_Image(camera, pixel));
    };
    const auto left = ground(0);
    const auto right = ground(width);
    if (!left || !right) return std::nullopt;
    const double metres = std::hypot(right->X - left->X, right->Y - left->Y);
    if (!(metres > 0 && metres < 1e9)) return std::nullopt;
    return Scale_Bar_For(width / metres, width);
  }
  return std::nullopt;
}

bool Is_Vector_File(const std::filesystem::path& file) {
  return Ending_Of(file) == ".svg" || Ending_Of(file) == ".pdf";
}

void Save_Picture_Vectors(const Picture& picture, const std::optional<ScaleBar>& bar,
                          const std::filesystem::path& file) {
  const Size size = Inner_Size(picture);
  const Surface surface = New_Surface(file, size);
  {
    const Context context(cairo_create(surface.get()));
    cairo_scale(context.get(), kPointsOfAPixel, kPointsOfAPixel);
    cairo_rectangle(context.get(), 0, 0, size.width, size.height);
    cairo_clip(context.get());
    Draw_Bitmap(context.get(), size, picture);
    Draw_Marks(context.get(), picture, picture.marks);
    Draw_Marks(context.get(), picture, picture.floating);
    if (bar) Draw_Bar(context.get(), size, *bar);
  }
  cairo_surface_finish(surface.get());
  if (const cairo_status_t status = cairo_surface_status(surface.get());
      status != CAIRO_STATUS_SUCCESS) {
    throw RunTimeError(Failure::FileFailure, file.string() + ": " + cairo_status_to_string(status),
                       file);
  }
}

}  // namespace sylvomex
