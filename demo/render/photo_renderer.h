// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "demo/render/surface_colour.h"
#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// Start values from the neighbouring ray of a row; they only save time.
struct RowMemory {
  int shading_tree = -1;  // as in Is_In_Shadow
  std::optional<double> ground_t;
};

/// The light arriving along the ray through a full-image position.
using RayColour = std::function<Colour3(double col, double row, RowMemory& memory)>;

/// The raw pixels of a photograph, rows from the top without padding, R, G, B bytes or one grey
/// byte. One ray through each pixel centre, a 3 x 3 binomial kernel as the blur of lens and
/// scanner, Gaussian pixel noise. The bytes do not depend on the number of threads.
std::vector<std::uint8_t> Render_Rays(const Scene& scene, const Photograph& photo,
                                      const RayColour& colour_of);

/// Render_Rays for an aerial photograph.
std::vector<std::uint8_t> Render_Photograph(const Scene& scene, const Photograph& photo);

}  // namespace sylvomex::demo
