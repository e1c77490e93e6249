// SPDX-License-Identifier: MIT
// Crowns that were fitted to lidar echoes, beside the trees of the scene.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "crowns/crown_record.h"
#include "demo/scene/scene.h"
#include "lidar/point_file.h"

namespace sylvomex::demo {

/// Metres; the box of the fit over an area reaches so far from its middle in X and in Y.
inline constexpr double kCrownBoxHalfWidth = 25;

/// A tree of more than 10 m whose crown lies wholly in the box and holds 25 echoes or more between
/// half the tree's height and its top, and the crown that was fitted to it.
struct TreeCrown {
  Tree tree;
  int echoes = 0;
  std::optional<CrownRecord> crown;
};

/// The trees of a box, from the scene's first on. A crown belongs to a tree when its axis lies
/// within the tree's crown radius, one to one, nearest pairs first.
std::vector<TreeCrown> Crowns_Of_Trees(const Scene& scene, double X, double Y,
                                       const std::vector<CrownRecord>& crowns,
                                       const std::vector<LidarPoint>& echoes);

/// Radius of the true crown at half the tree's height, or where it is widest when it ends above
/// that.
double True_Radius_At_Half(const Tree& tree);

/// What the fitted crowns of some trees are off, metres: empty where no tree has one.
struct CrownErrors {
  std::size_t trees = 0;
  std::vector<double> plan;    // distance of the axes
  std::vector<double> height;  // fitted less true
  std::vector<double> radius;  // at half the height, fitted less true
};

/// species: nothing for all.
CrownErrors Errors_Of(const std::vector<TreeCrown>& trees, std::optional<Species> species);

/// Trees and errors by species and over all, as aligned text.
std::string Table_Text(const std::vector<TreeCrown>& trees);

}  // namespace sylvomex::demo
