// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// The raw pixels of a photograph, rows from the top without padding, R, G, B bytes or one grey
/// byte. One ray through each pixel centre, a 3 x 3 binomial kernel as the blur of lens and
/// scanner, normal pixel noise. The bytes do not depend on the number of threads.
std::vector<std::uint8_t> Render_Photograph(const Scene& scene, const Photograph& photo);

}  // namespace sylvomex::demo
