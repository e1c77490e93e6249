// SPDX-License-Identifier: MIT
#include "demo/chain/region_map.h"

#include <cmath>
#include <memory>
#include <numbers>

#include "demo/scene/site_settings.h"
#include "demo/table/truth_file.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

constexpr Colour kFound{60, 230, 60};
constexpr Colour kMissed{255, 50, 50};
constexpr Colour kFalse{255, 230, 0};
constexpr Colour kBound{255, 255, 255};
constexpr Colour kBand{30, 30, 30};
constexpr double kRing = 1.4;  // metres
constexpr int kBandHeight = 34;
constexpr int kRingCorners = 24;

std::shared_ptr<const PaneBitmap> Bitmap_Of(const StandImage& image) {
  const std::size_t bytes = std::size_t{3} * image.width * image.height;
  if (image.rgb.size() != bytes) {
    throw RunTimeError(Failure::BadContent, "the orthoimage has " +
                                                std::to_string(image.rgb.size()) + " bytes, not " +
                                                std::to_string(bytes));
  }
  auto bitmap = std::make_shared<PaneBitmap>();
  bitmap->width = image.width;
  bitmap->height = image.height + kBandHeight;
  bitmap->bgr.assign(std::size_t{3} * bitmap->width * bitmap->height, kBand.r);
  for (std::size_t i = 0; i < bytes; i += 3) {
    bitmap->bgr[i] = image.rgb[i + 2];
    bitmap->bgr[i + 1] = image.rgb[i + 1];
    bitmap->bgr[i + 2] = image.rgb[i];
  }
  return bitmap;
}

struct Stand {
  double pixels_a_metre = 1;
  [[nodiscard]] double Px(double X) const { return (X - kForestWest) * pixels_a_metre; }
  [[nodiscard]] double Py(double Y) const {
    return (kForestSouth + kForestSide - Y) * pixels_a_metre;
  }
};

void Draw_Ring(Picture& picture, double px, double py, double radius, Colour colour) {
  for (int i = 0; i < kRingCorners; ++i) {
    const double from = 2 * std::numbers::pi * i / kRingCorners;
    const double to = 2 * std::numbers::pi * (i + 1) / kRingCorners;
    Draw_Line(picture, px + radius * std::cos(from), py + radius * std::sin(from),
              px + radius * std::cos(to), py + radius * std::sin(to), colour);
  }
}

void Ring_Top(Picture& picture, const Stand& stand, const Point3D& at, Colour colour) {
  Draw_Ring(picture, stand.Px(at.X), stand.Py(at.Y), kRing * stand.pixels_a_metre, colour);
}

void Draw_Bounds(Picture& picture, const Stand& stand, double cell) {
  picture.DrawWidth = 1;
  const int lines = static_cast<int>(std::ceil(kForestSide / cell));
  for (int i = 1; i < lines; ++i) {
    const double X = kForestWest + i * cell, Y = kForestSouth + i * cell;
    Draw_Line(picture, stand.Px(X), stand.Py(kForestSouth + kForestSide), stand.Px(X),
              stand.Py(kForestSouth), kBound);
    Draw_Line(picture, stand.Px(kForestWest), stand.Py(Y), stand.Px(kForestWest + kForestSide),
              stand.Py(Y), kBound);
  }
}

void Explain(Picture& picture, double px, double middle, Colour colour, const std::string& text) {
  constexpr double radius = 8;
  Draw_Ring(picture, px, middle, radius, colour);
  picture.CurrentX = px + 2 * radius;
  picture.CurrentY = middle - Text_Height(picture.font) / 2.0;
  picture.ForeColor = kBound;
  Print_Text(picture, text);
}

}  // namespace

std::vector<Point3D> Read_Tops(const FilePath& table) {
  const TruthFile file = Read_Truth_File(table);
  const std::size_t X = file.Column("X"), Y = file.Column("Y"), Z = file.Column("Z");
  std::vector<Point3D> tops;
  tops.reserve(file.lines.size());
  for (const std::vector<std::string>& fields : file.lines) {
    tops.push_back({Parse_Double(fields[X]), Parse_Double(fields[Y]), Parse_Double(fields[Z])});
  }
  return tops;
}

Picture Draw_Region_Map(const StandImage& image, const std::vector<Point3D>& tops,
                        const std::vector<TrueTree>& truth, double cell) {
  Picture picture;
  Load_Picture(picture, Bitmap_Of(image));
  const Stand stand{image.width / kForestSide};
  Draw_Bounds(picture, stand, cell);
  picture.DrawWidth = 2;
  const TopMatching matching = Match_One_To_One(tops, truth);
  for (std::size_t t = 0; t < truth.size(); ++t) {
    if (matching.cluster_of[t] || !Is_Dominant_And_Visible(truth[t])) continue;
    Ring_Top(picture, stand, truth[t].top, kMissed);
  }
  for (std::size_t c = 0; c < tops.size(); ++c) {
    Ring_Top(picture, stand, tops[c], matching.is_taken[c] ? kFound : kFalse);
  }
  picture.font = {"Arial", 12, false};
  const double middle = image.height + kBandHeight / 2.0;
  Explain(picture, 20, middle, kFound, "top with a tree");
  Explain(picture, 20 + image.width / 4.0, middle, kFalse, "top without a tree");
  Explain(picture, 20 + image.width / 2.0, middle, kMissed, "visible dominant tree without a top");
  return picture;
}

}  // namespace sylvomex::demo
