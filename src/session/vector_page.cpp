// SPDX-License-Identifier: MIT
#include "session/vector_page.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "panes/picture_painter.h"
#include "platform/characters.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kPixelsOfAPoint = 96.0 / 72.0;                        // of a font
constexpr double kPointsOfAPixel = 72.0 / 96.0;                        // of the page
constexpr double kNoteMargin = 12, kBarHeight = 5, kNoteLetters = 13;  // pixels

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

void Set_Colour(cairo_t* context, Colour colour) {
  cairo_set_source_rgb(context, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0);
}

/// The surface owns its pixels, since the page may copy them later.
void Draw_Bitmap(cairo_t* context, PageSize size, const Picture& picture) {
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

/// White letters with a black rim, so that they show on any ground; starts at the present point.
void Draw_Letters(cairo_t* context, const std::string& text) {
  cairo_text_path(context, text.c_str());
  cairo_set_line_width(context, 3);
  cairo_set_source_rgb(context, 0, 0, 0);
  cairo_stroke_preserve(context);
  cairo_set_source_rgb(context, 1, 1, 1);
  cairo_fill(context);
}

void Choose_Letters(cairo_t* context) {
  cairo_select_font_face(context, "Liberation Sans", CAIRO_FONT_SLANT_NORMAL,
                         CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context, kNoteLetters);
}

void Draw_Bar(cairo_t* context, PageSize size, const ScaleBar& bar) {
  const double top = size.height - kNoteMargin - kBarHeight;
  cairo_rectangle(context, kNoteMargin, top, bar.pixels, kBarHeight);
  cairo_set_source_rgb(context, 1, 1, 1);
  cairo_fill_preserve(context);
  cairo_set_source_rgb(context, 0, 0, 0);
  cairo_set_line_width(context, 1);
  cairo_stroke(context);
  Choose_Letters(context);
  cairo_move_to(context, kNoteMargin, top - kBarHeight);
  Draw_Letters(context, bar.Text());
}

/// At the lower right, where no command prints.
void Draw_Id(cairo_t* context, PageSize size, const std::string& id) {
  Choose_Letters(context);
  cairo_text_extents_t extents;
  cairo_text_extents(context, id.c_str(), &extents);
  cairo_move_to(context, size.width - kNoteMargin - extents.x_advance, size.height - kNoteMargin);
  Draw_Letters(context, id);
}

std::string Ending_Of(const std::filesystem::path& file) {
  std::string ending = file.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return ending;
}

Surface New_Surface(const std::filesystem::path& file, PageSize size) {
  const double width = size.width * kPointsOfAPixel;
  const double height = size.height * kPointsOfAPixel;
  return Surface(Ending_Of(file) == ".pdf" ? cairo_pdf_surface_create(file.c_str(), width, height)
                                           : cairo_svg_surface_create(file.c_str(), width, height));
}

}  // namespace

struct VectorPage::Drawing {
  Drawing(const std::filesystem::path& file, PageSize size)
      : surface(New_Surface(file, size)), context(cairo_create(surface.get())) {
    cairo_scale(context, kPointsOfAPixel, kPointsOfAPixel);
  }
  ~Drawing() { cairo_destroy(context); }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  Surface surface;
  cairo_t* context;
};

VectorPage::VectorPage(std::filesystem::path file, PageSize size)
    : file_(std::move(file)), drawing_(std::make_unique<Drawing>(file_, size)) {}

VectorPage::~VectorPage() = default;

void VectorPage::Add(const PlacedPicture& placed) {
  cairo_t* const context = drawing_->context;
  const Picture& picture = *placed.picture;
  cairo_save(context);
  cairo_translate(context, placed.left, placed.top);
  cairo_rectangle(context, 0, 0, placed.size.width, placed.size.height);
  cairo_clip(context);
  Draw_Bitmap(context, placed.size, picture);
  Draw_Marks(context, picture, picture.marks);
  Draw_Marks(context, picture, picture.floating);
  if (placed.bar) Draw_Bar(context, placed.size, *placed.bar);
  if (!placed.id.empty()) Draw_Id(context, placed.size, placed.id);
  cairo_restore(context);
}

void VectorPage::Finish() {
  cairo_surface_finish(drawing_->surface.get());
  for (const cairo_status_t status :
       {cairo_status(drawing_->context), cairo_surface_status(drawing_->surface.get())}) {
    if (status != CAIRO_STATUS_SUCCESS) {
      throw RunTimeError(Failure::FileFailure,
                         file_.string() + ": " + cairo_status_to_string(status), file_);
    }
  }
}

bool Is_Vector_File(const std::filesystem::path& file) {
  return Ending_Of(file) == ".svg" || Ending_Of(file) == ".pdf";
}

}  // namespace sylvomex
