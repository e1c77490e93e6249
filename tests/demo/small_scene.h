// SPDX-License-Identifier: MIT
// Scenes of a few trees on flat ground, placed by hand.
#pragma once

#include <vector>

#include "demo/scene/scene.h"

namespace sylvomex::demo {

/// Flat ground at 150 m; the sun of the default settings, no pixel noise.
inline Scene Scene_Of(const std::vector<Tree>& trees) {
  SiteSettings settings;
  settings.noise_sigma = 0;
  settings.stems_per_hectare = 10;
  Scene scene = Build_Scene(settings);
  for (double& height : scene.ground.heights) height = 150;
  scene.ground.steepest = 0;
  scene.trees = trees;
  scene.grid = Make_Tree_Grid(scene.trees);
  return scene;
}

/// A tree of 20 m on that ground, x and y from the south-west corner of the forest.
inline Tree Tree_At(int id, Species species, double x, double y) {
  Tree tree;
  tree.id = id;
  tree.species = species;
  tree.X = kForestWest + x;
  tree.Y = kForestSouth + y;
  tree.GroundZ = 150;
  tree.TopZ = 170;
  tree.crown_radius = 2.5;
  tree.crown_length = 12;
  tree.stem_radius = 0.1;
  return tree;
}

}  // namespace sylvomex::demo
