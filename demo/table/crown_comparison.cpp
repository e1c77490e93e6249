// SPDX-License-Identifier: MIT
#include "demo/table/crown_comparison.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "crowns/crown_profile.h"
#include "demo/table/sample_statistics.h"

namespace sylvomex::demo {
namespace {

constexpr double kLeastHeight = 10;  // metres
constexpr int kLeastEchoes = 25;
constexpr double kHalf = 0.5;       // of the height
constexpr double kTolerance = 0.1;  // metres, of an echo's place beside the crown's surface

bool Is_Wholly_In_Box(const Tree& tree, double X, double Y) {
  const double reach = kCrownBoxHalfWidth - tree.crown_radius;
  return std::fabs(tree.X - X) <= reach && std::fabs(tree.Y - Y) <= reach;
}

bool Is_In_Upper_Crown(const Tree& tree, const LidarPoint& echo) {
  const double depth = tree.TopZ - echo.Z;
  if (depth < -kTolerance || depth >= kHalf * tree.Height()) return false;
  if (depth > tree.crown_length + kTolerance) return false;
  return std::hypot(echo.X - tree.X, echo.Y - tree.Y) <=
         Crown_Outline(tree, depth).radius + kTolerance;
}

int Count_Echoes(const Tree& tree, const std::vector<LidarPoint>& echoes) {
  return static_cast<int>(std::ranges::count_if(
      echoes, [&tree](const LidarPoint& echo) { return Is_In_Upper_Crown(tree, echo); }));
}

std::vector<TreeCrown> Trees_Of_Box(const Scene& scene, double X, double Y,
                                    const std::vector<LidarPoint>& echoes) {
  std::vector<TreeCrown> trees;
  for (const Tree& tree : scene.trees) {
    if (tree.Height() <= kLeastHeight || !Is_Wholly_In_Box(tree, X, Y)) continue;
    const int count = Count_Echoes(tree, echoes);
    if (count >= kLeastEchoes) trees.push_back({tree, count, {}});
  }
  return trees;
}

struct Pair {
  double distance = 0;
  std::size_t tree = 0, crown = 0;
};

std::vector<Pair> Pairs_By_Distance(const std::vector<TreeCrown>& trees,
                                    const std::vector<CrownRecord>& crowns) {
  std::vector<Pair> pairs;
  for (std::size_t t = 0; t < trees.size(); ++t) {
    const Tree& tree = trees[t].tree;
    for (std::size_t c = 0; c < crowns.size(); ++c) {
      const double distance = std::hypot(crowns[c].X - tree.X, crowns[c].Y - tree.Y);
      if (distance <= tree.crown_radius) pairs.push_back({distance, t, c});
    }
  }
  std::ranges::stable_sort(pairs, {}, &Pair::distance);
  return pairs;
}

std::string Line_Of(const char* name, const CrownErrors& errors) {
  const SampleStatistics plan = Statistics_Of(errors.plan);
  const SampleStatistics height = Statistics_Of(errors.height);
  const SampleStatistics radius = Statistics_Of(errors.radius);
  char line[120];
  std::snprintf(line, sizeof line, "%-8s%5zu%7zu%9.2f%11.2f%7.2f%11.2f%7.2f\n", name, errors.trees,
                plan.n, plan.rms, height.mean, height.rms, radius.mean, radius.rms);
  return line;
}

}  // namespace

std::vector<TreeCrown> Crowns_Of_Trees(const Scene& scene, double X, double Y,
                                       const std::vector<CrownRecord>& crowns,
                                       const std::vector<LidarPoint>& echoes) {
  std::vector<TreeCrown> trees = Trees_Of_Box(scene, X, Y, echoes);
  std::vector<bool> is_taken(crowns.size(), false);
  for (const Pair& pair : Pairs_By_Distance(trees, crowns)) {
    if (trees[pair.tree].crown || is_taken[pair.crown]) continue;
    trees[pair.tree].crown = crowns[pair.crown];
    is_taken[pair.crown] = true;
  }
  return trees;
}

double True_Radius_At_Half(const Tree& tree) {
  const double depth = kHalf * tree.Height();
  return depth < tree.crown_length ? Crown_Outline(tree, depth).radius : tree.crown_radius;
}

CrownErrors Errors_Of(const std::vector<TreeCrown>& trees, std::optional<Species> species) {
  CrownErrors errors;
  for (const TreeCrown& one : trees) {
    if (species && one.tree.species != *species) continue;
    ++errors.trees;
    if (!one.crown) continue;
    const CrownRecord& crown = *one.crown;
    errors.plan.push_back(std::hypot(crown.X - one.tree.X, crown.Y - one.tree.Y));
    errors.height.push_back(crown.Height - one.tree.Height());
    errors.radius.push_back(
        Crown_Radius(Shape_Of(crown), crown.Height, kHalf * double{crown.Height}) -
        True_Radius_At_Half(one.tree));
  }
  return errors;
}

std::string Table_Text(const std::vector<TreeCrown>& trees) {
  std::string text =
      "                     axis XY   height          radius at half\n"
      "        trees fitted   RMS m     mean    RMS       mean    RMS\n";
  for (const Species species : {Species::Pine, Species::Spruce, Species::Birch}) {
    text += Line_Of(std::string(Species_Name(species)).c_str(), Errors_Of(trees, species));
  }
  return text + Line_Of("all", Errors_Of(trees, {}));
}

}  // namespace sylvomex::demo
