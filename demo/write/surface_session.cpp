// SPDX-License-Identifier: MIT
#include "demo/write/surface_session.h"

#include <algorithm>
#include <cmath>

#include "demo/render/ray_caster.h"
#include "demo/write/exact_text.h"
#include "demo/write/session_steps.h"
#include "demo/write/truth.h"
#include "imageblock/view_window.h"
#include "platform/rounding.h"

namespace sylvomex::demo {
namespace {

constexpr std::size_t kStrip = 3;       // photographs of the first strip
constexpr double kBorder = 20;          // metres of the forest that are left out
constexpr double kPlaceSpacing = 5;     // metres between places on the ground
constexpr double kReach = 1.2;          // metres about a place that a window shows
constexpr std::size_t kTreeStep = 5;    // one tree in five is measured
constexpr double kDominantHeight = 17;  // metres
constexpr double kRoughStep = 5;        // metres to which an operator guesses a height
constexpr double kPairSide = 200;       // metres of the pair's polygon
constexpr double kTripletSide = 60;     // metres of the triplet's polygon

Photograph Whole_Image(const Photograph& photo, std::size_t number) {
  Photograph whole = photo;
  ImageRecord& image = whole.image;
  image.AffineA0 -= image.SubColOrigin;
  image.AffineB0 -= image.FullHeight - image.SubHeight - image.SubRowOrigin;
  image.FullWidth = To_Int16(image.SubWidth);
  image.FullHeight = To_Int16(image.SubHeight);
  image.SubColOrigin = image.SubRowOrigin = 0;
  whole.camera = Make_Camera(image);
  whole.header_name = "c:\\data\\demo\\surface" + std::to_string(number) + ".hdr";
  return whole;
}

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

bool Is_Open(const Scene& scene, const std::vector<Photograph>& photos, double X, double Y) {
  for (const double dx : {-kReach, 0.0, kReach}) {
    for (const double dy : {-kReach, 0.0, kReach}) {
      const Point3D point{X + dx, Y + dy, Ground_Height(scene, X + dx, Y + dy)};
      if (!Sees_Ground_At(scene, photos, point)) return false;
    }
  }
  return true;
}

Point3D Rough(const Point3D& truth) {
  return {truth.X, truth.Y, kRoughStep * Round_Half_Even(truth.Z / kRoughStep)};
}

std::string Box_Steps(int image, const FilmPosition& film) {
  const std::string first = std::to_string(2 * image), second = std::to_string(2 * image + 1);
  return "set Text1(" + first + ") " + Fixed_Decimals(film.x, 8) + "\nset Text1(" + second + ") " +
         Fixed_Decimals(film.y, 8) + "\n";
}

std::string Place_Steps(const char* name, int image, const char* command,
                        const std::vector<SurfacePlace>& places) {
  std::string text;
  for (const SurfacePlace& place : places) {
    text += std::string("\nsay \"") + name + " " + Fixed_Decimals(place.truth.Z, 3) + "\"\n" +
            Solution_Steps(Rough(place.truth)) + Box_Steps(image, place.film) + "menu " + command +
            "\nprint Solution3D\nprint ObservationRecord.Rmse\n";
  }
  return text;
}

/// A polygon through points on the map, drawn in the pane of the fixed image at 1:6.
std::string Polygon_Steps(const Photograph& photo, int pane, const Point3D& centre,
                          const std::vector<Point3D>& corners) {
  constexpr double kZoom = 1.0 / 6;
  constexpr int kPane = 400;  // of three images in 1280 x 1024
  const Camera& camera = photo.camera;
  const PixelPosition middle = Object_To_Pixel(camera, centre);
  const ImageRecord& image = photo.image;
  const int extent = To_Int16(kPane / kZoom);
  const ViewWindow window =
      Compute_View_Window(image.SubWidth, image.SubHeight, To_Int16(middle.col),
                          To_Int16(image.FullHeight - 1 - middle.row), extent, extent);
  const double view_col = window.fits ? window.first_col : 0;
  const double view_row = window.fits ? window.first_row : 0;
  std::string text = Box_Steps(pane, Film_Of(photo, centre)) +
                     "menu Zoom1_6\nmenu Draw_Polygon\nmenu Draw_XYZ_Polygon\n";
  for (std::size_t k = 0; k < corners.size(); ++k) {
    const PixelPosition pixel = Object_To_Pixel(camera, corners[k]);
    const double px = (pixel.col - view_col) * kZoom;
    const double py = (image.FullHeight - 1 - pixel.row - view_row) * kZoom;
    text += "click Picture1(" + std::to_string(pane) + ") " + Fixed_Decimals(px, 1) + " " +
            Fixed_Decimals(py, 1) + (k == 0 ? " right\n" : "\n");
  }
  return text + "click Picture1(" + std::to_string(pane) +
         ") 1 1 right shift\nmenu Draw_Polygon\nmenu Draw_XYZ_Polygon\n";
}

Point3D On_Ground(const Scene& scene, double X, double Y) {
  return {X, Y, Ground_Height(scene, X, Y)};
}

std::vector<Point3D> Rectangle(const Scene& scene, double west, double south, double east,
                               double north) {
  return {On_Ground(scene, west, north), On_Ground(scene, east, north),
          On_Ground(scene, east, south), On_Ground(scene, west, south)};
}

}  // namespace

std::vector<Photograph> Whole_Image_Photographs(const std::vector<Photograph>& photos) {
  std::vector<Photograph> whole;
  for (std::size_t k = 0; k < kStrip && k < photos.size(); ++k) {
    whole.push_back(Whole_Image(photos[k], k + 1));
  }
  return whole;
}

std::vector<SurfacePlace> Ground_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                        int fixed_image) {
  std::vector<SurfacePlace> places;
  const Photograph& fixed = photos[static_cast<std::size_t>(fixed_image)];
  constexpr int kPlacesASide = static_cast<int>((kForestSide - 2 * kBorder) / kPlaceSpacing) + 1;
  for (int row = 0; row < kPlacesASide; ++row) {
    for (int column = 0; column < kPlacesASide; ++column) {
      const Point3D point = On_Ground(scene, kForestWest + kBorder + column * kPlaceSpacing,
                                      kForestSouth + kBorder + row * kPlaceSpacing);
      if (!Is_Open(scene, photos, point.X, point.Y)) continue;
      places.push_back({Film_Of(fixed, point), point});
    }
  }
  return places;
}

std::vector<SurfacePlace> Crown_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                       int fixed_image) {
  std::vector<SurfacePlace> places;
  const Photograph& fixed = photos[static_cast<std::size_t>(fixed_image)];
  for (std::size_t i = 0; i < scene.trees.size(); i += kTreeStep) {
    const Tree& tree = scene.trees[i];
    const double x = tree.X - kForestWest, y = tree.Y - kForestSouth;
    const bool inside = std::min(x, y) > kBorder && std::max(x, y) < kForestSide - kBorder;
    if (!inside || tree.Height() < kDominantHeight) continue;
    const auto tops = Tops_On_Photos(scene, photos, i);
    if (!std::all_of(tops.begin(), tops.end(), [](const TopOnPhoto& t) { return t.visible; })) {
      continue;
    }
    const Point3D top{tree.X, tree.Y, tree.TopZ};
    places.push_back({Film_Of(fixed, top), top});
  }
  return places;
}

std::string Surface_Points_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> strip = Whole_Image_Photographs(photos);
  return "# Heights of single places by vertical line search.\n" + Load_Steps(strip) +
         Place_Steps("pair ground", 0, "Get_Surface_Height", Ground_Places(scene, strip, 0)) +
         Place_Steps("pair crown", 0, "Get_Surface_Height", Crown_Places(scene, strip, 0)) +
         Place_Steps("triplet ground", 1, "Get_surface_single_point_triplet",
                     Ground_Places(scene, strip, 1)) +
         Window_Picture("Form1", "surface_triplet_point") +
         Place_Steps("triplet crown", 1, "Get_surface_single_point_triplet",
                     Crown_Places(scene, strip, 1));
}

std::string Pair_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> strip = Whole_Image_Photographs(photos);
  const double west = kForestWest + (kForestSide - kPairSide) / 2;
  const double south = kForestSouth + (kForestSide - kPairSide) / 2;
  const Point3D middle = On_Ground(scene, west + kPairSide / 2, south + kPairSide / 2);
  // The grid begins at the start point, north-west of the polygon.
  const Point3D start = On_Ground(scene, west - 5, south + kPairSide + 8);
  return "# The surface of the forest by a polygon of pair searches.\n" + Load_Steps(strip) +
         Centre_Steps(Rough(middle)) +
         Polygon_Steps(strip[0], 0, middle,
                       Rectangle(scene, west, south, west + kPairSide, south + kPairSide)) +
         Box_Steps(0, Film_Of(strip[0], start)) +
         "menu Get_Surface_Height_InCdll\nprint Label10\n" +
         Window_Picture("Form1", "surface_pair");
}

std::string Triplet_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> strip = Whole_Image_Photographs(photos);
  const auto open = Ground_Places(scene, strip, 1);
  const Point3D middle =
      open.empty() ? On_Ground(scene, kForestWest + kForestSide / 2, kForestSouth + kForestSide / 2)
                   : open[open.size() / 2].truth;
  const double half = kTripletSide / 2;
  return "# The surface about a gap of the forest by a polygon of triplet searches.\n" +
         Load_Steps(strip) + Centre_Steps(Rough(middle)) +
         Polygon_Steps(
             strip[1], 1, middle,
             Rectangle(scene, middle.X - half, middle.Y - half, middle.X + half, middle.Y + half)) +
         Box_Steps(1, Film_Of(strip[1], middle)) + "menu Triplet_Matching\nprint Label10\n" +
         Window_Picture("Form1", "surface_triplet");
}

}  // namespace sylvomex::demo
