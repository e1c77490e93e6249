// SPDX-License-Identifier: MIT
// Scripted sessions that measure heights of the open heath: single places by pair and by triplet,
// a polygon by each.
#pragma once

#include <string>
#include <vector>

#include "demo/write/surface_steps.h"

namespace sylvomex::demo {

/// The areas of the two polygons.
inline constexpr MapArea kHeathPairArea{75, -132, 225, -18};
inline constexpr MapArea kHeathTripletArea{120, -105, 180, -45};

/// photos: as of Heath_Photographs. The triplet measures twice: with the middle photograph of the
/// strip as the fixed one, and with an outer one, which the second has a twice as long base to.
std::string Heath_Points_Session(const Scene& scene, const std::vector<Photograph>& photos);

std::string Heath_Pair_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// The solution is measured first, by a single triplet search in the polygon's middle.
std::string Heath_Triplet_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
