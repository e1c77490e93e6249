// SPDX-License-Identifier: MIT
// Scripted sessions that measure heights of the forest: single places on its floor and on crowns,
// a polygon by the pair and one of the canopy by the triplet.
#pragma once

#include <string>
#include <vector>

#include "demo/write/surface_steps.h"

namespace sylvomex::demo {

/// The area of the canopy's polygon, in the middle of the forest.
inline constexpr MapArea kCanopyArea{120, 120, 180, 180};

/// The tops of dominant trees that every photograph shows, of one tree in five. fixed_image:
/// position in photos.
std::vector<SurfacePlace> Crown_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                       int fixed_image);

/// photos: as of Whole_Image_Photographs.
std::string Surface_Points_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// A polygon over the middle of the forest by the pair.
std::string Pair_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// The canopy by the triplet, searched about a height some metres below the tops.
std::string Canopy_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
