// SPDX-License-Identifier: MIT
// The vertical line search with one thing changed at a time.
#pragma once

#include <string>

#include "surface_scene.h"

namespace sylvomex::bench {

enum class Windows {
  OnWholePixels,  // as the commands cut them
  Interpolated,   // bilinear, about the very position: what whole pixels cost
};

enum class Ties {
  Lowest,  // as the commands keep them
  Middle,  // between the lowest and the highest of neighbouring equal scores
};

struct SearchVariant {
  std::string name;
  SearchSettings settings;
  double limit = 0;  // metres that a height may miss the truth by
  SceneVariant scene = {};
  bool to_pixel_centres = false;
  Windows windows = Windows::OnWholePixels;
  Ties ties = Ties::Lowest;
};

struct VariantResult {
  std::size_t n = 0;  // places with texture
  double within = 0;  // share within the limit
  double mean = 0, rms = 0;
  std::size_t blunders = 0;  // beyond 1 m
  double rms_without_blunders = 0;
};

/// Searches from the true height rounded to 5 m at every place of the heath.
VariantResult Run_Variant(const SearchVariant& variant, const SurfaceScene& scene);

}  // namespace sylvomex::bench
