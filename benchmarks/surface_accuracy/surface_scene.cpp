// SPDX-License-Identifier: MIT
#include "surface_scene.h"

#include <cmath>

#include "demo/render/photo_renderer.h"
#include "demo/render/ray_caster.h"

namespace sylvomex::bench {
namespace {

constexpr int kSpacing = 3;          // metres
constexpr double kMeanGround = 160;  // metres

demo::Scene Make_Scene(const SceneVariant& variant) {
  demo::SiteSettings settings;
  settings.noise_sigma = variant.noise;
  demo::Scene scene = demo::Build_Scene(settings);
  if (variant.level_ground) {
    for (double& height : scene.ground.heights) height = kMeanGround;
    scene.ground.steepest = 0;
  }
  return scene;
}

PixelPosition Middle_Of_Pixel(const ImageRecord& image, const PixelPosition& pixel) {
  const double raw_row = std::floor(image.FullHeight - 1 - pixel.row);
  return {std::floor(pixel.col) + 0.5, image.FullHeight - 1 - (raw_row + 0.5)};
}

}  // namespace

SurfaceScene::SurfaceScene(const SceneVariant& variant)
    : scene_(Make_Scene(variant)), photos_(demo::Heath_Photographs(demo::Fly_Over(scene_))) {
  for (const demo::Photograph& photo : photos_) {
    pixels_.push_back(demo::Render_Photograph(scene_, photo));
    images_.push_back({photo.camera, Make_Window_Raster(photo.image, pixels_.back())});
  }
}

TruePlace SurfaceScene::Place_At(const demo::Photograph& fixed, const PixelPosition& pixel) const {
  const demo::Ray ray = demo::Ray_Through_Pixel(fixed, pixel.col, pixel.row);
  const double t = demo::Ground_Crossing(scene_, ray, fixed.image.Z0 - kMeanGround);
  return {Pixel_To_Image(fixed.camera, pixel), ray.z - t};
}

std::vector<TruePlace> SurfaceScene::Places(int fixed_image, bool to_pixel_centres) const {
  const demo::Photograph& fixed = photos_[static_cast<std::size_t>(fixed_image)];
  const int columns = static_cast<int>(demo::kHeathEast - demo::kHeathWest) / kSpacing;
  const int rows = static_cast<int>(demo::kHeathNorth - demo::kHeathSouth) / kSpacing;
  std::vector<TruePlace> places;
  for (int row = 0; row <= rows; ++row) {
    for (int col = 0; col <= columns; ++col) {
      const double X = demo::kForestWest + demo::kHeathWest + col * kSpacing;
      const double Y = demo::kForestSouth + demo::kHeathSouth + row * kSpacing;
      const PixelPosition pixel =
          Object_To_Pixel(fixed.camera, {X, Y, demo::Ground_Height(scene_, X, Y)});
      places.push_back(
          Place_At(fixed, to_pixel_centres ? Middle_Of_Pixel(fixed.image, pixel) : pixel));
    }
  }
  return places;
}

}  // namespace sylvomex::bench
