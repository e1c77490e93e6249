// SPDX-License-Identifier: MIT
// Photographs for the surface searches, which count rows and columns of the raw file: their
// headers call each raw file a whole image. One set shows the forest, the other the open heath
// south of it, ground without trees that no tree shades, since the sun stands in the south.
#pragma once

#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// Sides of the heath, metres from the forest's south-west corner.
inline constexpr double kHeathWest = 20, kHeathEast = 280;
inline constexpr double kHeathSouth = -135, kHeathNorth = -15;

/// Pixel positions count from the raw file's corner instead of the frame's.
void Call_Raw_File_Whole(Photograph& photo);

/// The first strip with raw files of the heath of their own. There is room beside the heath for
/// windows that search 30 m above and below it.
std::vector<Photograph> Heath_Photographs(const std::vector<Photograph>& photos);

/// The first strip over the forest, with the raw files of the given photographs.
std::vector<Photograph> Whole_Image_Photographs(const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
