// SPDX-License-Identifier: MIT
// The scene: ground, trees and sun. Everything on the demo site (photographs, height models, truth)
// is generated from this record.
//
// X east, Y north, Z up, metres.
#pragma once

#include <vector>

#include "demo/scene/crown.h"
#include "demo/scene/ground.h"
#include "demo/scene/site_settings.h"
#include "demo/scene/tree_grid.h"
#include "solver/vector3.h"

namespace sylvomex::demo {

struct Scene {
  SiteSettings settings;
  Ground ground;
  std::vector<Tree> trees;
  TreeGrid grid;
  double sun_azimuth = 0;    // radians from north, clockwise
  double sun_elevation = 0;  // radians
  Vector3 sun;               // unit vector towards the sun
};

/// RunTimeError(BadContent) naming the setting, its value and its range when it is out of range.
Scene Build_Scene(const SiteSettings& settings);

/// Elevation of the ground.
double Ground_Height(const Scene& scene, double X, double Y);

/// Elevation of the surface seen from directly above: crown where there is one, else ground.
double Canopy_Height(const Scene& scene, double X, double Y);

/// Index of the tree nearest to the middle of the forest among those of at least that height.
/// RunTimeError(BadContent) when there is none.
std::size_t Centre_Tree(const Scene& scene, double least_height);

}  // namespace sylvomex::demo
