// SPDX-License-Identifier: MIT
#include "demo/write/surface_session.h"

#include <algorithm>

#include "demo/write/session_steps.h"
#include "demo/write/truth.h"

namespace sylvomex::demo {
namespace {

constexpr double kBorder = 20;  // metres of the forest that are left out
constexpr MapArea kForest{kBorder, kBorder, kForestSide - kBorder, kForestSide - kBorder};
constexpr double kPlaceSpacing = 5;     // metres between places on the ground
constexpr std::size_t kTreeStep = 5;    // one tree in five is measured
constexpr double kDominantHeight = 17;  // metres
constexpr MapArea kPairArea{50, 50, 250, 250};
constexpr double kBelowTop = 4;  // metres from a dominant tree's top to the middle of the canopy

bool Is_Inside(const Tree& tree) {
  const double x = tree.X - kForestWest, y = tree.Y - kForestSouth;
  return x > kForest.west && x < kForest.east && y > kForest.south && y < kForest.north;
}

bool Is_Seen_By_All(const Scene& scene, const std::vector<Photograph>& photos, std::size_t tree) {
  const auto tops = Tops_On_Photos(scene, photos, tree);
  return std::all_of(tops.begin(), tops.end(), [](const TopOnPhoto& top) { return top.visible; });
}

}  // namespace

std::vector<SurfacePlace> Crown_Places(const Scene& scene, const std::vector<Photograph>& photos,
                                       int fixed_image) {
  const Camera& fixed = photos[static_cast<std::size_t>(fixed_image)].camera;
  std::vector<SurfacePlace> places;
  for (std::size_t i = 0; i < scene.trees.size(); i += kTreeStep) {
    const Tree& tree = scene.trees[i];
    if (!Is_Inside(tree) || tree.Height() < kDominantHeight) continue;
    if (!Is_Seen_By_All(scene, photos, i)) continue;
    const Point3D top{tree.X, tree.Y, tree.TopZ};
    places.push_back({Object_To_Image(fixed, top).value_or(FilmPosition{}), top});
  }
  return places;
}

std::string Surface_Points_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const std::vector<Photograph> outer_fixed = Outer_Second(photos);
  return "# Heights of single places in the forest by vertical line search.\n" +
         Load_Steps(photos) +
         Place_Steps("pair, forest floor", 0, "Get_Surface_Height",
                     Ground_Places(scene, photos, 0, kForest, kPlaceSpacing)) +
         Place_Steps("pair, tree tops", 0, "Get_Surface_Height", Crown_Places(scene, photos, 0)) +
         Place_Steps("triplet, forest floor", 1, "Get_surface_single_point_triplet",
                     Ground_Places(scene, photos, 1, kForest, kPlaceSpacing)) +
         Place_Steps("triplet, tree tops", 1, "Get_surface_single_point_triplet",
                     Crown_Places(scene, photos, 1)) +
         Remove_Steps() + Add_Image_Steps(outer_fixed) +
         Place_Steps("triplet, outer fixed, forest floor", 1, "Get_surface_single_point_triplet",
                     Ground_Places(scene, outer_fixed, 1, kForest, kPlaceSpacing));
}

std::string Pair_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const Point3D middle = Ground_Point(scene, (kPairArea.west + kPairArea.east) / 2,
                                      (kPairArea.south + kPairArea.north) / 2);
  // The grid begins at the start point, north-west of the polygon.
  const Point3D start = Ground_Point(scene, kPairArea.west - 5, kPairArea.north + 8);
  return "# The surface of the forest by a polygon of pair searches.\n" + Load_Steps(photos) +
         Centre_Steps(Rough(middle)) +
         Polygon_Steps(scene, photos, {0, "Zoom1_6", 6}, middle, kPairArea) +
         Box_Steps(photos, 0, start) + "menu Get_Surface_Height_InCdll\nprint Label10\n" +
         Window_Picture("Form1", "surface_forest");
}

std::string Canopy_Surface_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const Tree& tree = scene.trees[Centre_Tree(scene, kDominantHeight)];
  const Point3D start{tree.X, tree.Y, tree.TopZ - kBelowTop};
  const Point3D middle = Ground_Point(scene, (kCanopyArea.west + kCanopyArea.east) / 2,
                                      (kCanopyArea.south + kCanopyArea.north) / 2);
  return "# The canopy in the middle of the forest by a polygon of triplet searches.\n" +
         Load_Steps(photos) + Centre_Steps(middle) +
         Polygon_Steps(scene, photos, {1, "Zoom_1_2", 2}, middle, kCanopyArea) +
         Solution_Steps(start) + Box_Steps(photos, 1, middle) +
         "menu Triplet_Matching\nprint Label10\n" + Window_Picture("Form1", "surface_canopy");
}

}  // namespace sylvomex::demo
