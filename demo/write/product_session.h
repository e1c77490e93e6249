// SPDX-License-Identifier: MIT
// Scripted sessions that make the image products of the site and look at them: orthoimages, a
// mosaic, an index, cut-outs, zones and the map window.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/flight.h"
#include "platform/drive_map.h"
#include "products/ortho_grid.h"

namespace sylvomex::demo {

/// The cells of all orthoimages of the site.
inline constexpr double kOrthoSide = 280;    // metres
inline constexpr double kOrthoPixel = 0.25;  // metres
OrthoGrid Product_Grid();

/// A hundred places of the ground where white discs lie on the image of targets.
std::vector<Point3D> Target_Places(const Scene& scene);

/// The grey image of the targets alone: the camera of a photograph, black but for the discs.
Photograph Target_Image(const Photograph& photo);
std::vector<std::uint8_t> Target_Pixels(const Photograph& image,
                                        const std::vector<Point3D>& places);

/// A circular zone of the zone mask, on the ground.
struct Zone {
  Point3D centre;
  int id = 0;
  double radius = 0;  // metres
};
std::vector<Zone> Product_Zones(const Scene& scene);

/// The image of the targets, its header, the points of the cut-outs, the zones and the camera table
/// of the index.
void Write_Product_Files(const Scene& scene, const std::vector<Photograph>& photos,
                         const DriveMap& drives);

/// Makes every product, and measures the same tree tops in the full images and in the cut-outs:
/// say "full 151.23 ..." and "cut ..." with X, Y, Z of the top before each solution.
std::string Product_Session(const Scene& scene, const std::vector<Photograph>& photos);

/// Looks at the maps that the orthoimage over the ground and the mosaic became.
std::string Map_Session();

}  // namespace sylvomex::demo
