// SPDX-License-Identifier: MIT
#include "demo/write/crown_session.h"

#include <algorithm>
#include <cmath>

#include "demo/scene/surface_photographs.h"
#include "demo/write/exact_text.h"
#include "demo/write/match_session.h"
#include "demo/write/session_steps.h"
#include "demo/write/truth.h"

namespace sylvomex::demo {
namespace {

constexpr double kInset = 30;     // metres inside the forest; the lidar campaigns lie 24 m inside
constexpr double kBoxReach = 25;  // metres, half a side of the box
constexpr double kTileSide = 100;
constexpr int kTreesOfSpecies = 10;
constexpr int kClickedTrees = 30;
constexpr double kHeightError = 3;      // metres
constexpr double kDominantHeight = 14;  // metres

bool Is_Inside(const Tree& tree) {
  const auto inside = [](double value, double first) {
    return value >= first + kInset && value <= first + kForestSide - kInset;
  };
  return inside(tree.X, kForestWest) && inside(tree.Y, kForestSouth);
}

double Inside_Tile(double value) {
  const double corner = kTileSide * std::floor(value / kTileSide);
  return std::clamp(value, corner + kBoxReach, corner + kTileSide - kBoxReach);
}

std::string Picture_Steps(const char* name, std::size_t photos) {
  std::string text;
  for (std::size_t k = 0; k < photos; ++k) {
    text += "save Picture1(" + std::to_string(k) + ") c:\\data\\demo\\" + name + "_pane" +
            std::to_string(k + 1) + ".png\n";
  }
  return text;
}

std::string Tick_Steps(int species) {
  std::string text;
  for (int i = 1; i <= 4; ++i) {
    text += "set Check2(" + std::to_string(i - 1) + ") " + (i == species ? "1" : "0") + "\n";
  }
  return text;
}

std::string Local_Steps(const Scene& scene, Species species) {
  std::string text = Tick_Steps(Species_Tick(species));
  int count = 0;
  for (const Tree& tree : scene.trees) {
    if (tree.species != species || tree.Height() < kDominantHeight || !Is_Inside(tree)) continue;
    text += "say \"local " + std::to_string(tree.id) + "\"\n" +
            Solution_Steps({tree.X, tree.Y, tree.TopZ}) + "menu Match_Local_Crown\nprint Label10\n";
    if (++count == kTreesOfSpecies) break;
  }
  return text;
}

std::string Wrong_Height_Steps(const Scene& scene, const std::vector<Photograph>& photos,
                               std::size_t index, double error) {
  const Tree& tree = scene.trees[index];
  const Point3D start{tree.X, tree.Y, tree.TopZ + error};
  const TopOnPhoto top = Tops_On_Photos(scene, photos, index)[0];
  const PanePosition at = Full_Image_To_Pane(
      photos[0].image, View_Centred_On(photos[0], start, kSessionPaneSide), top.col, top.row);
  return Centre_Steps(start) + "say \"click " + std::to_string(tree.id) +
         "\"\ntry click Picture1(0) " + Fixed_Decimals(at.px, 1) + " " + Fixed_Decimals(at.py, 1) +
         "\nprint Label10\n";
}

bool Is_Seen_By_All(const std::vector<TopOnPhoto>& tops) {
  return std::ranges::all_of(tops, [](const TopOnPhoto& top) { return top.visible; });
}

std::string Tick_All_Steps(const std::vector<Photograph>& photos) {
  std::string text;
  for (std::size_t k = 0; k < photos.size(); ++k) {
    text += "set Check1(" + std::to_string(k) + ") 1\n";
  }
  return text;
}

// Half of the trees are clicked too high, half too low.
std::string Click_All_Steps(const Scene& scene, const std::vector<Photograph>& photos) {
  std::string text = Tick_All_Steps(photos) + "menu Measure_tree_tops_By_Matching\n";
  int count = 0;
  for (std::size_t i = 0; i < scene.trees.size() && count < kClickedTrees; ++i) {
    const Tree& tree = scene.trees[i];
    if (tree.Height() < kDominantHeight || !Is_Inside(tree)) continue;
    if (!Is_Seen_By_All(Tops_On_Photos(scene, photos, i))) continue;
    text += Wrong_Height_Steps(scene, photos, i, count % 2 == 0 ? kHeightError : -kHeightError);
    ++count;
  }
  return text + Picture_Steps("multi_size", photos.size()) + "menu Measure_tree_tops_By_Matching\n";
}

std::string Tile_Key(const Tree& tree) {
  return Fixed_Decimals(std::floor(tree.X / kTileSide), 0) + " " +
         Fixed_Decimals(std::floor(tree.Y / kTileSide), 0);
}

}  // namespace

int Species_Tick(Species species) {
  if (species == Species::Pine) return 1;
  return species == Species::Spruce ? 2 : 3;
}

Point3D Crown_Box_Middle(const Tree& tree) {
  return {Inside_Tile(tree.X), Inside_Tile(tree.Y), tree.TopZ};
}

std::string Crown_Box_Steps(const Point3D& middle) {
  return Centre_Steps(middle) + Tick_Steps(0) +
         "button yes\ncommand Image_Lidar_Allometry_Algorithm\n"
         "print LidarPoints.Count\nprint CrownTrees.Count\nprint Label10\n";
}

std::string Crown_List(const Scene& scene) {
  std::vector<Tree> trees;
  std::ranges::copy_if(scene.trees, std::back_inserter(trees), Is_Inside);
  std::ranges::stable_sort(trees, {}, Tile_Key);
  std::string list;
  for (const Tree& tree : trees) {
    for (const double value : {tree.X, tree.Y, tree.TopZ, tree.TopZ - tree.crown_length}) {
      list += Fixed_Decimals(value, 3) + ",";
    }
    list += std::to_string(Species_Tick(tree.species)) + "," +
            Fixed_Decimals(2 * tree.crown_radius, 3) + "\n";
  }
  return list;
}

std::vector<Photograph> Whole_Photographs(const std::vector<Photograph>& photos) {
  std::vector<Photograph> whole;
  for (const Photograph& photo : photos) {
    if (photo.image.ColorFlag != 1) continue;
    whole.push_back(photo);
    Call_Raw_File_Whole(whole.back());
    whole.back().header_name = "c:\\data\\demo\\whole" + std::to_string(whole.size()) + ".hdr";
  }
  return whole;
}

std::string Crown_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const Tree& model = scene.trees[Model_Tree(scene, photos)];
  std::string text = "# Crowns from lidar and photographs.\n" + Load_Steps(photos) +
                     Crown_Box_Steps(Crown_Box_Middle(model)) +
                     Picture_Steps("crown", photos.size());
  for (const Species species : {Species::Pine, Species::Spruce, Species::Birch}) {
    text += Local_Steps(scene, species);
  }
  return text + "menu Crown_Intersection_For_LiDAR\n";
}

std::string Multi_Size_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> whole = Whole_Photographs(photos);
  const Tree& model = scene.trees[Model_Tree(scene, photos)];
  return "# Heights by the model tree's crown in eleven sizes.\n" + Load_Steps(whole) +
         Centre_Steps({model.X, model.Y, model.TopZ}) + "set Text7 -1.5\n" +
         Model_Click_Steps(model, whole) + "menu Capture_templates\nmenu Resize_templates\n" +
         Click_All_Steps(scene, whole);
}

}  // namespace sylvomex::demo
