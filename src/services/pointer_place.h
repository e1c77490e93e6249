// SPDX-License-Identifier: MIT
// The place on the ground under the pointer, for the read-out of the desktop. Metres.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/point3d.h"
#include "services/world_frame.h"

namespace sylvomex {

struct Workspace;

struct PointerPlace {
  Point3D point;
  bool on_ground = false;        // cut with the height model; else on the solution's plane
  std::optional<double> ground;  // of the elevation model at X, Y
  std::optional<double> canopy;  // of the canopy model
  double pixel = 0;              // side of a pixel of the raw file on the ground
};

/// The place that pane k shows at a pane position. The ray is cut with the raster elevation model,
/// without one with the triangulated one, else with the horizontal plane of a valid solution.
/// std::nullopt for a pane without a picture and where none of these is met.
std::optional<PointerPlace> Place_Under_Pointer(const Workspace& w, int pane, double px, double py);

/// The same in words, the fullest first; the later ones have fewer decimals and leave more out. A
/// display takes the first that fits, so that no number is ever cut off.
///
/// world: where one is known, the same place in the world stands behind, as long as it fits.
std::vector<std::string> Place_Words(const PointerPlace& place,
                                     const std::optional<WorldFrame>& world = std::nullopt);

}  // namespace sylvomex
