// SPDX-License-Identifier: MIT
// A scripted session that makes a normalised pair of two photographs, looks at a tree in it and
// measures tree tops with the floating mark.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "stereo/normal_plane.h"

namespace sylvomex::demo {

inline constexpr const char* kPairFile = "c:\\data\\demo\\PAIR.TXT";
inline constexpr const char* kStereoTopsFile = "c:\\data\\demo\\stereo_tops.txt";

/// The two photographs of the pair, left one first, with headers that call their raw files whole
/// images.
std::vector<Photograph> Stereo_Photographs(const std::vector<Photograph>& photos);

/// The pair as the session makes it; c and the affine of both photographs, not rounded.
StereoPair Session_Pair(const std::vector<Photograph>& stereo);

/// Where a normalised raster shows a point. The raster counts from the middle of a pixel, a
/// photograph of the site from its corner.
RasterPosition Seen_On_Raster(const Photograph& photo, const StereoPair& pair,
                              const StereoImage& side, const Point3D& point);

/// The tops that the session measures, in its order.
std::vector<Point3D> Stereo_Tops(const Scene& scene, const std::vector<Photograph>& stereo);

/// Each top is approached from a rough height: the operator brings the mark onto the top in the
/// left image, to half a pixel, and raises it until its right image fits, to half a pixel too.
std::string Stereo_Session(const Scene& scene, const std::vector<Photograph>& photos);

}  // namespace sylvomex::demo
