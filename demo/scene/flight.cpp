// SPDX-License-Identifier: MIT
#include "demo/scene/flight.h"

#include <array>
#include <cmath>
#include <numbers>

#include "platform/rounding.h"
#include "solver/ray_angles.h"

namespace sylvomex::demo {
namespace {

constexpr double kPrincipalDistance = 0.15297;  // metres
constexpr std::uint64_t kFilm = 264;            // of the block; the ids are its frames
constexpr int kFrameSide = 17400;               // pixels of 15 micrometres
constexpr double kLeastStartHeight = 18;        // metres; of the tree on which panes start

/// One exposure. Its id fits in 16 bits, since a search result becomes the observation record's id.
/// Offsets of the projection centre from the middle of the forest, metres; angles in degrees;
/// affine at 15 micrometres a pixel.
struct Exposure {
  int id;
  const char* comment;
  bool colour;
  double east, north, Z0;
  double omega, phi, kappa;
  double A1, A2, A0, B1, B2, B0;
};

constexpr std::array<Exposure, 6> kExposures = {{
    {1204, "Demo block, strip 1, frame 1", true, -527.3, -498.6, 1181.4, 0.412, -0.731, 1.284,
     66662.31, -41.7, 8701.6, 38.2, 66671.94, 8697.3},
    {1205, "Demo block, strip 1, frame 2", true, 6.8, -505.2, 1183.9, -0.527, 0.318, 0.846,
     66663.08, -40.9, 8700.2, 39.4, 66670.55, 8698.8},
    {1206, "Demo block, strip 1, frame 3", true, 534.1, -501.7, 1180.2, 0.268, 0.604, 1.557,
     66661.75, -42.3, 8702.1, 37.6, 66672.36, 8696.9},
    {1231, "Demo block, strip 2, frame 1", true, 529.6, 503.9, 1178.5, -0.344, 0.452, 181.732,
     66662.90, -41.2, 8699.4, 38.8, 66671.10, 8699.7},
    {1232, "Demo block, strip 2, frame 2", true, -4.2, 499.3, 1176.8, 0.683, -0.219, 180.918,
     66662.44, -41.9, 8700.9, 38.0, 66671.68, 8698.1},
    {1233, "Demo block, strip 2, frame 3, panchromatic", false, -531.5, 506.4, 1179.7, -0.195,
     -0.576, 181.365, 66663.27, -40.5, 8701.2, 39.9, 66670.83, 8697.6},
}};

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

/// The affine is in pixels: coarser pixels divide it, and rows are flipped about the frame's last
/// row.
void Set_Interior(ImageRecord& image, const Exposure& exposure, double scale) {
  image.PrincipalDistance = kPrincipalDistance;
  image.FullWidth = image.FullHeight = To_Int16(kFrameSide / scale);
  image.AffineA1 = exposure.A1 / scale;
  image.AffineA2 = exposure.A2 / scale;
  image.AffineA0 = exposure.A0 / scale;
  image.AffineB1 = exposure.B1 / scale;
  image.AffineB2 = exposure.B2 / scale;
  image.AffineB0 = image.FullHeight - 1 - (kFrameSide - 1 - exposure.B0) / scale;
}

void Set_Exterior(ImageRecord& image, const Exposure& exposure) {
  image.Omega = Radians(exposure.omega);
  image.Phi = Radians(exposure.phi);
  image.Kappa = Radians(exposure.kappa);
  image.X0 = kForestWest + kForestSide / 2 + exposure.east;
  image.Y0 = kForestSouth + kForestSide / 2 + exposure.north;
  image.Z0 = exposure.Z0;
}

struct PixelBox {
  double least_col = 1e30, most_col = -1e30;
  double least_top = 1e30, most_top = -1e30;  // rows from the top
};

/// Columns and rows (from the top) covered by a part of the scene.
PixelBox Box_On_Frame(const Photograph& photo, const SceneBox& part) {
  PixelBox box;
  for (const double X : {part.west, part.east}) {
    for (const double Y : {part.south, part.north}) {
      for (const double Z : {part.low, part.high}) {
        const auto [col, row] = Object_To_Pixel(photo.camera, {X, Y, Z});
        const double top = photo.image.FullHeight - 1 - row;
        box.least_col = std::min(box.least_col, col);
        box.most_col = std::max(box.most_col, col);
        box.least_top = std::min(box.least_top, top);
        box.most_top = std::max(box.most_top, top);
      }
    }
  }
  return box;
}

/// The forest with its margin, trees included.
SceneBox Forest_Box(const Scene& scene) {
  const double low = *std::min_element(scene.ground.heights.begin(), scene.ground.heights.end());
  const double margin = scene.settings.margin;
  return {kForestWest - margin,
          kForestSouth - margin,
          kForestWest + kForestSide + margin,
          kForestSouth + kForestSide + margin,
          low,
          std::max(low, scene.grid.highest_top)};
}

void Set_Start(Photograph& photo, const Tree& tree) {
  const auto [col, row] = Object_To_Pixel(photo.camera, {tree.X, tree.Y, tree.TopZ});
  photo.image.StartCol = To_Int16(col - photo.image.SubColOrigin);
  photo.image.StartRow = To_Int16(photo.image.FullHeight - 1 - row - photo.image.SubRowOrigin);
}

Photograph Expose(const Scene& scene, const Exposure& exposure, const std::string& name) {
  Photograph photo;
  ImageRecord& image = photo.image;
  image.ImageId = exposure.id;
  image.ColorFlag = exposure.colour ? 1 : 0;
  image.ImageComment = exposure.comment;
  image.RawFileName = name + ".raw";
  photo.header_name = name + ".hdr";
  photo.grain = 10000 * kFilm + static_cast<std::uint64_t>(exposure.id);
  Set_Interior(image, exposure, scene.settings.pixel_scale);
  Set_Exterior(image, exposure);
  image.SunAzimuth = scene.sun_azimuth;
  image.SunElevation = scene.sun_elevation;
  photo.camera = Make_Camera(image);
  Set_Raw_Area(photo, Forest_Box(scene));
  return photo;
}

}  // namespace

void Set_Raw_Area(Photograph& photo, const SceneBox& part) {
  const PixelBox box = Box_On_Frame(photo, part);
  ImageRecord& image = photo.image;
  image.SubColOrigin = std::max(1.0, std::floor(box.least_col));
  image.SubRowOrigin = std::max(1.0, std::floor(box.least_top));
  image.SubWidth = std::min<double>(image.FullWidth, std::ceil(box.most_col)) - image.SubColOrigin;
  image.SubHeight =
      std::min<double>(image.FullHeight, std::ceil(box.most_top)) - image.SubRowOrigin;
}

std::size_t Start_Tree(const Scene& scene) { return Centre_Tree(scene, kLeastStartHeight); }

std::vector<Photograph> Fly_Over(const Scene& scene) {
  const Tree& start = scene.trees[Start_Tree(scene)];
  std::vector<Photograph> photos;
  for (std::size_t i = 0; i < kExposures.size(); ++i) {
    photos.push_back(Expose(scene, kExposures[i], "c:\\data\\demo\\im" + std::to_string(i + 1)));
    Set_Start(photos.back(), start);
  }
  return photos;
}

Ray Ray_Through_Pixel(const Photograph& photo, double col, double row) {
  const FilmPosition film = Pixel_To_Image(photo.camera, {col, row});
  const Vector3 direction = Film_Ray(photo.camera, film);
  return {photo.image.X0,
          photo.image.Y0,
          photo.image.Z0,
          -direction.x / direction.z,
          -direction.y / direction.z,
          -1};
}

RawPixelCentre Centre_Of_Raw_Pixel(const ImageRecord& image, double raw_col, double raw_row) {
  return {image.SubColOrigin + raw_col + 0.5,
          image.FullHeight - 1 - (image.SubRowOrigin + raw_row + 0.5)};
}

bool Is_On_Raw_File(const ImageRecord& image, double col, double row) {
  const double raw_col = col - image.SubColOrigin;
  const double raw_row = image.FullHeight - 1 - row - image.SubRowOrigin;
  return raw_col >= 0 && raw_row >= 0 && raw_col < image.SubWidth && raw_row < image.SubHeight;
}

}  // namespace sylvomex::demo
