// SPDX-License-Identifier: MIT
#pragma once

#include "demo/render/ray_caster.h"

namespace sylvomex::demo {

/// Light as recorded on film, grey values 0 to 255 before noise.
struct Colour3 {
  float red = 0, green = 0, blue = 0;
};

/// Colour of a surface point under sun and sky: Lambert's cosine law where the sun reaches it,
/// skylight everywhere, and a little haze. Bark, foliage and ground vegetation vary with
/// noise fixed in object space, so every photograph shows the same texture.
/// shading_tree: as in Is_In_Shadow.
Colour3 Surface_Colour(const Scene& scene, const SurfaceHit& hit, int& shading_tree);

}  // namespace sylvomex::demo
