// SPDX-License-Identifier: MIT
// Photographs of the open heath of the demo site and the true heights of places on it.
#pragma once

#include <cstdint>
#include <vector>

#include "demo/scene/surface_photographs.h"
#include "surfaces/vertical_line_search.h"

namespace sylvomex::bench {

/// What the photographs are made with.
struct SceneVariant {
  double noise = 2.5;         // of a pixel, grey values
  bool level_ground = false;  // all at 160 m instead of rolling
};

struct TruePlace {
  FilmPosition film;  // of the fixed image
  double Z = 0;       // at which its ray meets the ground
};

/// Three photographs, rendered once. The images refer to the pixels of their own scene.
class SurfaceScene {
 public:
  explicit SurfaceScene(const SceneVariant& variant);
  SurfaceScene(const SurfaceScene&) = delete;
  SurfaceScene& operator=(const SurfaceScene&) = delete;

  [[nodiscard]] const SurfaceImage& Image(int k) const {
    return images_[static_cast<std::size_t>(k)];
  }

  /// Places of the heath every 3 m; to_pixel_centres: moved to the middle of the fixed image's
  /// pixel that shows them.
  [[nodiscard]] std::vector<TruePlace> Places(int fixed_image, bool to_pixel_centres) const;

 private:
  [[nodiscard]] TruePlace Place_At(const demo::Photograph& fixed, const PixelPosition& pixel) const;

  demo::Scene scene_;
  std::vector<demo::Photograph> photos_;
  std::vector<std::vector<std::uint8_t>> pixels_;
  std::vector<SurfaceImage> images_;
};

}  // namespace sylvomex::bench
