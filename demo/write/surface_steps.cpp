// SPDX-License-Identifier: MIT
#include "demo/write/surface_steps.h"

#include <algorithm>
#include <array>

#include "demo/render/ray_caster.h"
#include "demo/write/exact_text.h"
#include "demo/write/session_steps.h"
#include "imageblock/view_window.h"
#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

constexpr double kReach = 1.2;    // metres about a place that a window shows
constexpr double kRoughStep = 5;  // metres to which an operator guesses a height
constexpr int kPane = 400;        // pixels a side

FilmPosition Film_Of(const Photograph& photo, const Point3D& point) {
  return Object_To_Image(photo.camera, point).value_or(FilmPosition{});
}

/// What a photograph sees in the direction of a point.
SurfaceHit Seen_At(const Scene& scene, const Photograph& photo, const Point3D& point) {
  const PixelPosition pixel = Object_To_Pixel(photo.camera, point);
  const Ray ray = Ray_Through_Pixel(photo, pixel.col, pixel.row);
  const double ground = Ground_Crossing(scene, ray, photo.image.Z0 - point.Z);
  return Cast_Camera_Ray(scene, ray, ground, Foliage::Closed);
}

bool Sees_Ground_At(const Scene& scene, const std::vector<Photograph>& photos,
                    const Point3D& point) {
  return std::all_of(photos.begin(), photos.end(), [&](const Photograph& photo) {
    return Seen_At(scene, photo, point).kind == SurfaceHit::Kind::Ground;
  });
}

bool Is_Open(const Scene& scene, const std::vector<Photograph>& photos, double x, double y) {
  for (const double dx : {-kReach, 0.0, kReach}) {
    for (const double dy : {-kReach, 0.0, kReach}) {
      if (!Sees_Ground_At(scene, photos, Ground_Point(scene, x + dx, y + dy))) return false;
    }
  }
  return true;
}

std::string Type_Film(int image, const FilmPosition& film) {
  const std::string first = std::to_string(2 * image), second = std::to_string(2 * image + 1);
  return "set Text1(" + first + ") " + Fixed_Decimals(film.x, 8) + "\nset Text1(" + second + ") " +
         Fixed_Decimals(film.y, 8) + "\n";
}

/// Upper left corner of a pane's view in the raw file.
ViewWindow View_About(const Photograph& photo, const Point3D& centre, int extent) {
  const ImageRecord& image = photo.image;
  const PixelPosition middle = Object_To_Pixel(photo.camera, centre);
  return Compute_View_Window(image.SubWidth, image.SubHeight, To_Int16(middle.col),
                             To_Int16(image.FullHeight - 1 - middle.row), extent, extent);
}

}  // namespace

Point3D Ground_Point(const Scene& scene, double x, double y) {
  const double X = kForestWest + x, Y = kForestSouth + y;
  return {X, Y, Ground_Height(scene, X, Y)};
}

std::vector<SurfacePlace> Ground_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                        int fixed_image, const MapArea& area, double spacing) {
  const Photograph& fixed = photos[static_cast<std::size_t>(fixed_image)];
  const int columns = static_cast<int>((area.east - area.west) / spacing);
  const int rows = static_cast<int>((area.north - area.south) / spacing);
  std::vector<SurfacePlace> places;
  for (int row = 0; row <= rows; ++row) {
    for (int col = 0; col <= columns; ++col) {
      const double x = area.west + col * spacing, y = area.south + row * spacing;
      if (!Is_Open(scene, photos, x, y)) continue;
      const Point3D point = Ground_Point(scene, x, y);
      places.push_back({Film_Of(fixed, point), point});
    }
  }
  return places;
}

Point3D Rough(const Point3D& truth) {
  return {truth.X, truth.Y, kRoughStep * Round_Half_Even(truth.Z / kRoughStep)};
}

std::string Box_Steps(const std::vector<Photograph>& photos, int image, const Point3D& point) {
  return Type_Film(image, Film_Of(photos[static_cast<std::size_t>(image)], point));
}

std::string All_Box_Steps(const std::vector<Photograph>& photos, const Point3D& point) {
  std::string text;
  for (std::size_t k = 0; k < photos.size(); ++k) {
    text += Box_Steps(photos, static_cast<int>(k), point);
  }
  return text;
}

std::vector<Photograph> Outer_Second(const std::vector<Photograph>& strip) {
  return {strip[1], strip[0], strip[2]};
}

std::string Remove_Steps() { return "input 100\nmenu Remove_an_image\n"; }

std::string Place_Steps(const std::string& kind, int fixed_image, const char* command,
                        const std::vector<SurfacePlace>& places) {
  std::string text;
  for (const SurfacePlace& place : places) {
    text += "\nsay \"" + kind + " " + Fixed_Decimals(place.truth.Z, 3) + "\"\n" +
            Solution_Steps(Rough(place.truth)) + Type_Film(fixed_image, place.film) + "menu " +
            command + "\nprint ObservationRecord.Rmse\nprint Solution3D\n";
  }
  return text;
}

std::string Polygon_Steps(const Scene& scene, const std::vector<Photograph>& photos,
                          const PolygonPane& pane, const Point3D& centre, const MapArea& area) {
  const Photograph& photo = photos[static_cast<std::size_t>(pane.image)];
  const ViewWindow view = View_About(photo, centre, kPane * pane.zoom_out);
  const std::array<Point3D, 4> corners = {
      Ground_Point(scene, area.west, area.north), Ground_Point(scene, area.east, area.north),
      Ground_Point(scene, area.east, area.south), Ground_Point(scene, area.west, area.south)};
  const std::string click = "click Picture1(" + std::to_string(pane.image) + ") ";
  std::string text = All_Box_Steps(photos, centre) + "menu " + pane.zoom_item +
                     "\nmenu Draw_Polygon\nmenu Draw_XYZ_Polygon\n";
  const char* button = " right\n";
  for (const Point3D& corner : corners) {
    const PixelPosition pixel = Object_To_Pixel(photo.camera, corner);
    const double px = (pixel.col - view.first_col) / pane.zoom_out;
    const double py = (photo.image.FullHeight - 1 - pixel.row - view.first_row) / pane.zoom_out;
    text += click + Fixed_Decimals(px, 1) + " " + Fixed_Decimals(py, 1) + button;
    button = "\n";
  }
  return text + click + "1 1 right shift\nmenu Draw_Polygon\nmenu Draw_XYZ_Polygon\n";
}

}  // namespace sylvomex::demo
