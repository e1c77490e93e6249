// SPDX-License-Identifier: MIT
#include "services/pointer_place.h"

#include <cmath>

#include "heightmodels/ray_cut.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "state/camera_access.h"
#include "state/tin_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kFirstGuess = 0;  // metres, without a solution

// A height of 0 stands for a place outside the model.
std::optional<double> Inside(double height) {
  const bool has_data = height != 0 && height != kNoTinHeight && !Is_No_Data(height);
  return has_data ? std::optional(height) : std::nullopt;
}

std::optional<double> Ground_At(const Workspace& w, double X, double Y) {
  std::int32_t hint = 0;
  if (w.RasterDemLoaded) return Inside(Get_Raster_Elevation(w, X, Y));
  if (w.TinDemLoaded) return Inside(Get_Tin_Elevation(w, X, Y, hint));
  return std::nullopt;
}

std::optional<double> Canopy_At(const Workspace& w, double X, double Y) {
  std::int32_t hint = 0;
  if (w.RasterChm.rows > 0) return Inside(Get_Raster_Chm_Elevation(w, X, Y));
  if (w.TinChm.TriangleCount > 0) return Inside(Get_Tin_Chm_Elevation(w, X, Y, hint));
  return std::nullopt;
}

// The model's own height at its middle, when there is no solution near it.
double Guess(const Workspace& w) {
  if (w.SolutionValid) return w.Solution3D.Z;
  const RasterModel& raster = w.RasterDem;
  const TinModel& tin = w.TinDem;
  const auto middle =
      w.RasterDemLoaded
          ? Ground_At(w, raster.OriginX + raster.CellSize * raster.NCols / 2,
                      raster.OriginY + raster.CellSize * raster.NRows / 2)
          : Ground_At(w, (tin.TileMinX + tin.TileMaxX) / 2, (tin.TileMinY + tin.TileMaxY) / 2);
  return middle.value_or(kFirstGuess);
}

std::string Number(double value, int decimals) {
  return Format(value, decimals == 2 ? "0.00" : decimals == 1 ? "0.0" : "0");
}

std::string Point_Words(const PointerPlace& place, int decimals) {
  return "X " + Number(place.point.X, decimals) + "  Y " + Number(place.point.Y, decimals) +
         "  Z " + Number(place.point.Z, decimals) + " m";
}

std::string World_Words(const PointerPlace& place, const std::optional<WorldFrame>& world,
                        int decimals) {
  if (!world) return "";
  return "   " + world->system + " " + Number(place.point.X + world->shift_X, decimals) + "  " +
         Number(place.point.Y + world->shift_Y, decimals);
}

std::string Model_Words(const PointerPlace& place, int decimals) {
  std::string words;
  if (place.ground) words += "   ground " + Number(*place.ground, decimals) + " m";
  if (place.canopy) words += "   canopy " + Number(*place.canopy, decimals) + " m";
  if (place.ground && place.canopy) {
    words += ", " + Number(*place.canopy - *place.ground, decimals) + " m above ground";
  }
  return words;
}

}  // namespace

std::optional<PointerPlace> Place_Under_Pointer(const Workspace& w, int pane, double px,
                                                double py) {
  if (pane < 0 || pane >= w.ImageCount || w.PaneViews(pane).ZoomX == 0) return std::nullopt;
  const Camera camera = Camera_Of(w, pane);
  if (camera.affine_determinant == 0 || camera.c == 0) return std::nullopt;
  const FilmPosition film = Pixel_To_Image(camera, Pixel_Of_Pane(w, pane, px, py));
  const HeightAt ground = [&w](double X, double Y) { return Ground_At(w, X, Y); };
  const bool has_model = w.RasterDemLoaded || w.TinDemLoaded;
  std::optional<Point3D> point;
  if (has_model) point = Cut_Ray(camera, film, ground, Guess(w));
  const bool on_ground = point.has_value();
  if (!point && w.SolutionValid) point = Image_To_Object_At_Z(camera, w.Solution3D.Z, film);
  if (!point) return std::nullopt;
  PointerPlace place{*point, on_ground, Ground_At(w, point->X, point->Y),
                     Canopy_At(w, point->X, point->Y), 0};
  const double film_pixel = std::sqrt(1 / std::abs(camera.affine_determinant));
  place.pixel = film_pixel * std::abs(Scale_Number(camera, point->Z));
  return place;
}

std::vector<std::string> Place_Words(const PointerPlace& place,
                                     const std::optional<WorldFrame>& world) {
  const std::string surface = place.on_ground ? " on the ground" : " at the solution's height";
  const std::string pixel = "   pixel " + Number(place.pixel, 2) + " m";
  const auto point = [&](int decimals) {
    return Point_Words(place, decimals) + World_Words(place, world, decimals);
  };
  std::vector<std::string> words{Point_Words(place, 2) + surface + World_Words(place, world, 2) +
                                     Model_Words(place, 2) + pixel,
                                 point(2) + Model_Words(place, 2) + pixel};
  for (const int decimals : {1, 0}) {
    words.push_back(point(decimals) + Model_Words(place, decimals) + pixel);
  }
  words.push_back(point(1));
  words.push_back(point(0));
  if (world) words.push_back(Point_Words(place, 0));
  return words;
}

}  // namespace sylvomex
