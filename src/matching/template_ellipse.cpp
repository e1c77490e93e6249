// SPDX-License-Identifier: MIT
#include "matching/template_ellipse.h"

#include <algorithm>
#include <cmath>

#include "closedlib/counted_loop.h"
#include "platform/rounding.h"
#include "solver/ray_angles.h"

namespace sylvomex {
namespace {

double Distance(FilmPosition a, FilmPosition b) {
  return std::pow((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y), 0.5);
}

void Set_Shifts(const ImageRecord& image, FilmPosition top, TemplateRecord& ellipse) {
  double top_col = 0, top_row = 0, centre_col = 0, centre_row = 0;
  Image_To_Pixel(image, top.x, top.y, top_col, top_row);
  Image_To_Pixel(image, ellipse.CenterX, ellipse.CenterY, centre_col, centre_row);
  // A smaller shift keeps the value of the previous capture.
  if (std::abs(top_col - centre_col) > 0.5) ellipse.ShiftCol = To_Int16(top_col - centre_col);
  if (std::abs(top_row - centre_row) > 0.5) ellipse.ShiftRow = To_Int16(top_row - centre_row);
}

}  // namespace

FilmPosition Film_Of_Point(const ImageRecord& image, const RotationMatrix& m,
                           const Point3D& point) {
  FilmPosition film;
  Object_To_Image(image, m, point.X, point.Y, point.Z, film.x, film.y);
  return film;
}

TemplateRecord Ellipse_Of_Crown(const ImageRecord& image, const RotationMatrix& m,
                                const Point3D& top, const TemplateParameters& crown,
                                const TemplateRecord& previous) {
  TemplateRecord ellipse = previous;
  const FilmPosition at_top = Film_Of_Point(image, m, top);
  const FilmPosition centre = Film_Of_Point(image, m, {top.X, top.Y, top.Z + crown.EZA});
  const FilmPosition nadir = Film_Of_Point(image, m, {image.X0, image.Y0, top.Z});
  const FilmPosition above = Film_Of_Point(image, m, {top.X, top.Y, top.Z + crown.Zd});
  const FilmPosition beside = Film_Of_Point(image, m, {top.X + crown.Tw, top.Y, top.Z});
  ellipse.CenterX = centre.x;
  ellipse.CenterY = centre.y;
  Set_Shifts(image, at_top, ellipse);
  ellipse.RadialAngle = MYFUNC_ATAN2(at_top.x - nadir.x, at_top.y - nadir.y);
  ellipse.SemiAxisTangential = Distance(beside, at_top);
  ellipse.SemiAxisRadial = std::max(Distance(above, at_top), ellipse.SemiAxisTangential);
  return ellipse;
}

std::vector<FilmPosition> Ellipse_Outline(const TemplateRecord& ellipse, FilmPosition centre) {
  constexpr double kStep = 0.05;
  constexpr double kFullTurn = 6.28318530717958;
  const double a = ellipse.SemiAxisRadial, b = ellipse.SemiAxisTangential;
  const double cos_q = std::cos(ellipse.RadialAngle), sin_q = std::sin(ellipse.RadialAngle);
  std::vector<FilmPosition> outline;
  const int passes = Loop_Passes(0, kFullTurn, kStep);
  for (int pass = 0; pass < passes; ++pass) {
    const double cos_t = std::cos(pass * kStep), sin_t = std::sin(pass * kStep);
    outline.push_back({centre.x + a * cos_q * cos_t - b * sin_q * sin_t,
                       centre.y + a * sin_q * cos_t + b * cos_q * sin_t});
  }
  return outline;
}

}  // namespace sylvomex
