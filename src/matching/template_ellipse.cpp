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

void Set_Shifts(const Camera& camera, FilmPosition top, TemplateRecord& ellipse) {
  const PixelPosition at_top = Image_To_Pixel(camera, top);
  const PixelPosition centre = Image_To_Pixel(camera, {ellipse.CenterX, ellipse.CenterY});
  const double cols = at_top.col - centre.col;
  const double rows = at_top.row - centre.row;
  // A shift of half a pixel or less keeps the value of the previous capture.
  if (std::abs(cols) > 0.5) ellipse.ShiftCol = To_Int16(cols);
  if (std::abs(rows) > 0.5) ellipse.ShiftRow = To_Int16(rows);
}

}  // namespace

TemplateRecord Ellipse_Of_Crown(const Camera& camera, const Point3D& top,
                                const TemplateParameters& crown, const TemplateRecord& previous) {
  TemplateRecord ellipse = previous;
  const FilmPosition at_top = Film_Of_Point(camera, top);
  const FilmPosition centre = Film_Of_Point(camera, {top.X, top.Y, top.Z + crown.EZA});
  const FilmPosition nadir = Film_Of_Point(camera, {camera.centre.X, camera.centre.Y, top.Z});
  const FilmPosition above = Film_Of_Point(camera, {top.X, top.Y, top.Z + crown.Zd});
  const FilmPosition beside = Film_Of_Point(camera, {top.X + crown.Tw, top.Y, top.Z});
  ellipse.CenterX = centre.x;
  ellipse.CenterY = centre.y;
  Set_Shifts(camera, at_top, ellipse);
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
