// SPDX-License-Identifier: MIT
#include "matching/template_cutting.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"
#include "solver/camera_model.h"

namespace sylvomex {
namespace {

constexpr int kSide = 2 * kTemplateReach + 1;

// The pixels of the window inside the ellipse: [column][row from the top].
using Mask = std::array<std::array<bool, kSide>, kSide>;

RawWindow Window_Around(const ImageRecord& image, const Camera& camera,
                        const TemplateRecord& ellipse) {
  const auto [col, row] = Image_To_Pixel(camera, {ellipse.CenterX, ellipse.CenterY});
  const int centre_row = To_Int16(image.FullHeight - 1 - row - image.SubRowOrigin);
  const int centre_col = To_Int16(col - image.SubColOrigin);
  return {centre_col - kTemplateReach, centre_col + kTemplateReach, centre_row - kTemplateReach,
          centre_row + kTemplateReach};
}

bool Is_In_Ellipse(const TemplateRecord& ellipse, const FilmPosition& film) {
  const double dx = film.x - ellipse.CenterX, dy = film.y - ellipse.CenterY;
  const double cos_q = std::cos(ellipse.RadialAngle), sin_q = std::sin(ellipse.RadialAngle);
  const double u = cos_q * dx + sin_q * dy;
  const double v = -sin_q * dx + cos_q * dy;
  return v * v / (ellipse.SemiAxisTangential * ellipse.SemiAxisTangential) +
             u * u / (ellipse.SemiAxisRadial * ellipse.SemiAxisRadial) <
         1.0;
}

Mask Mask_Of_Ellipse(const ImageRecord& image, const Camera& camera, const TemplateRecord& ellipse,
                     const RawWindow& window) {
  Mask mask{};
  for (int i = 0; i < kSide; ++i) {
    for (int j = 0; j < kSide; ++j) {
      const PixelPosition pixel{window.first_col + i + image.SubColOrigin,
                                image.FullHeight - image.SubRowOrigin - 1 - (window.top_row + j)};
      mask[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] =
          Is_In_Ellipse(ellipse, Pixel_To_Image(camera, pixel));
    }
  }
  return mask;
}

struct Borders {
  int first = 0;
  int last = kSide - 1;
  bool defined = false;
};

// First run of columns (or rows) n for which is_set(n), i.e. that contain a pixel of the ellipse.
template <class IsSet>
Borders Find_Borders(IsSet&& is_set) {
  Borders borders;
  int n = 0;
  while (n < kSide && !is_set(n)) ++n;
  if (n == kSide) return borders;
  borders.first = n;
  while (n < kSide && is_set(n)) ++n;
  borders.last = n - 1;
  borders.defined = n < kSide;
  return borders;
}

Borders Column_Borders(const Mask& mask) {
  return Find_Borders([&mask](int n) {
    const auto& column = mask[static_cast<std::size_t>(n)];
    return std::find(column.begin(), column.end(), true) != column.end();
  });
}

Borders Row_Borders(const Mask& mask) {
  return Find_Borders([&mask](int n) {
    return std::any_of(mask.begin(), mask.end(),
                       [n](const auto& column) { return column[static_cast<std::size_t>(n)]; });
  });
}

// The raw file's pixels where the mask is set; elsewhere 0, and nothing is read.
std::vector<std::uint8_t> Pixels_In_Box(const RawPixelReader& raw, const RawWindow& window,
                                        const Mask& mask, const Borders& cols,
                                        const Borders& rows) {
  std::vector<std::uint8_t> pixels;
  for (int j = rows.first; j <= rows.last; ++j) {
    for (int i = cols.first; i <= cols.last; ++i) {
      const bool inside = mask[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
      pixels.push_back(inside ? raw.At(window.first_col + i, window.top_row + j) : std::uint8_t{0});
    }
  }
  return pixels;
}

void Require_Width(const ImageRecord& image, const TemplateRecord& ellipse) {
  if (ellipse.SemiAxisTangential > 0) return;
  throw RunTimeError(Failure::DivisionByZero, "the template's ellipse in image " +
                                                  Plain_Text(image.ImageId) + " has no width");
}

bool Lies_In_Raw_File(const RawPixelReader& raw, const RawWindow& window, const Mask& mask) {
  if (!raw.Holds(window.first_col + kTemplateReach, window.top_row + kTemplateReach)) return false;
  for (int i = 0; i < kSide; ++i) {
    for (int j = 0; j < kSide; ++j) {
      const bool inside = mask[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
      if (inside && !raw.Holds(window.first_col + i, window.top_row + j)) return false;
    }
  }
  return true;
}

[[noreturn]] void Throw_Outside(const ImageRecord& image, const RawWindow& window) {
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "image " + Plain_Text(image.ImageId) + ": the ellipse around column " +
                         Plain_Text(std::int32_t{window.first_col + kTemplateReach}) + ", row " +
                         Plain_Text(std::int32_t{window.top_row + kTemplateReach}) +
                         " leaves the raw file of " + Plain_Text(image.SubWidth) + " x " +
                         Plain_Text(image.SubHeight) + " pixels");
}

}  // namespace

CutTemplate Cut_Template(const ImageRecord& image, const RawPixels& raw,
                         const TemplateRecord& ellipse) {
  Require_Width(image, ellipse);
  const Camera camera = Make_Camera(image);
  const RawWindow window = Window_Around(image, camera, ellipse);
  const RawPixelReader pixels(image, raw, ColourRule::MiddleByte);
  const Mask mask = Mask_Of_Ellipse(image, camera, ellipse, window);
  if (!Lies_In_Raw_File(pixels, window, mask)) Throw_Outside(image, window);
  const Borders cols = Column_Borders(mask);
  const Borders rows = Row_Borders(mask);
  CutTemplate cut;
  cut.cols_defined = cols.defined;
  cut.rows_defined = rows.defined;
  cut.pattern.width = cols.last - cols.first + 1;
  cut.pattern.height = rows.last - rows.first + 1;
  cut.pattern.reference_col = kTemplateReach - cols.first + ellipse.ShiftCol;
  // Image rows are counted upwards, window rows downwards.
  cut.pattern.reference_row = kTemplateReach - rows.first - ellipse.ShiftRow;
  cut.pattern.pixels = Pixels_In_Box(pixels, window, mask, cols, rows);
  return cut;
}

}  // namespace sylvomex
