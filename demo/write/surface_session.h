// SPDX-License-Identifier: MIT
// Scripted sessions that measure heights of the site's surface: single places on bare ground and
// on crowns, and two polygons, one by the pair and one by the triplet.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"

namespace sylvomex::demo {

/// The first strip with headers that call each raw file a whole image: the surface searches count
/// rows and columns of the raw file.
std::vector<Photograph> Whole_Image_Photographs(const std::vector<Photograph>& photos);

/// A place to measure and the height at which its ray meets the surface.
struct SurfacePlace {
  FilmPosition film;  // of the fixed image
  Point3D truth;
};

/// Open ground, on a grid over the forest: all that a window of the fixed image shows is ground,
/// and every photograph sees it.
std::vector<SurfacePlace> Ground_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                        int fixed_image);

/// The tops of dominant trees that every photograph shows, of one tree in five.
std::vector<SurfacePlace> Crown_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                       int fixed_image);

/// Single heights by pair and by triplet; before each a line that names its kind and its true
/// height: say "pair ground 151.234".
std::string Surface_Points_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// A polygon over the middle of the forest by the pair.
std::string Pair_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// A polygon about a gap of the forest by the triplet.
std::string Triplet_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
