// SPDX-License-Identifier: MIT
#include "demo/write/match_session.h"

#include <cmath>
#include <optional>

#include "demo/write/exact_text.h"
#include "demo/write/session_steps.h"
#include "demo/write/truth.h"

namespace sylvomex::demo {
namespace {

constexpr double kModelHeight = 20;     // metres
constexpr double kModelReach = 45;      // metres from the middle of the forest
constexpr double kDominantHeight = 17;  // metres
constexpr double kPlotRadius = 23;      // metres, as in the box r
constexpr int kLeastPhotos = 4;

// Differences from the boxes' start values: the ellipse's centre is lowered into the crown, the
// layer covers tops instead of whole crowns, and one crown gives one cluster.
constexpr const char* kBoxes =
    "set Text7 -1.5\n"
    "set Text9 0.85\n"
    "set Text2 2.5\n";

int Count_Photos(const Scene& scene, const std::vector<Photograph>& photos, std::size_t tree) {
  int count = 0;
  for (const TopOnPhoto& top : Tops_On_Photos(scene, photos, tree)) count += top.visible ? 1 : 0;
  return count;
}

bool Is_Candidate(const Scene& scene, const std::vector<Photograph>& photos, std::size_t tree) {
  const Tree& candidate = scene.trees[tree];
  const double middle = kForestSide / 2;
  return candidate.species == Species::Birch && candidate.Height() >= kModelHeight &&
         std::hypot(candidate.X - kForestWest - middle, candidate.Y - kForestSouth - middle) <=
             kModelReach &&
         Count_Photos(scene, photos, tree) == static_cast<int>(photos.size());
}

int Count_Visible_Trees_Around(const Scene& scene, const std::vector<Photograph>& photos,
                               const Tree& middle) {
  int count = 0;
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    const Tree& tree = scene.trees[i];
    if (tree.Height() < kDominantHeight) continue;
    if (std::hypot(tree.X - middle.X, tree.Y - middle.Y) > kPlotRadius) continue;
    count += Count_Photos(scene, photos, i) >= kLeastPhotos ? 1 : 0;
  }
  return count;
}

std::string Load_All_Steps(const std::vector<Photograph>& photos) {
  return "# The tree tops of a plot, searched by matching the crown of one tree.\n" +
         Load_Steps(photos) + "file c:\\data\\demo\\chm.hdr\nmenu Add_Raster_CHM\n";
}

std::string Picture_Steps(const std::vector<Photograph>& photos, const std::string& stage) {
  std::string text;
  for (std::size_t k = 0; k < photos.size(); ++k) {
    text += "save Picture1(" + std::to_string(k) + ") c:\\data\\demo\\" + stage + "_pane" +
            std::to_string(k + 1) + ".png\n";
  }
  return text;
}

std::string Result_Steps(const std::vector<Photograph>& photos) {
  return "menu Find_clusters\nprint Label10\nprint PlotCenter\nprint PlotRadius\n"
         "print MeshPoints.Count\nprint ClusterCount\n" +
         Picture_Steps(photos, "cluster") +
         // The tops drawn on the photographs.
         "menu Center_to_xyz_click\nmenu Find_clusters\n" + Picture_Steps(photos, "treetop") +
         "try screenshot c:\\data\\demo\\treetop_window.png\n";
}

}  // namespace

std::size_t Model_Tree(const Scene& scene, const std::vector<Photograph>& photos) {
  std::optional<std::size_t> best;
  int most = 0;
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    if (!Is_Candidate(scene, photos, i)) continue;
    const int count = Count_Visible_Trees_Around(scene, photos, scene.trees[i]);
    if (best && count <= most) continue;
    most = count;
    best = i;
  }
  return best ? *best : Centre_Tree(scene, kDominantHeight);
}

std::string Model_Click_Steps(const Tree& tree, const std::vector<Photograph>& photos) {
  const Point3D top{tree.X, tree.Y, tree.TopZ};
  std::string text = "menu Center_to_xyz_click\n";
  for (std::size_t k = 0; k < photos.size(); ++k) {
    const Photograph& photo = photos[k];
    const auto [col, row] = Object_To_Pixel(photo.camera, top);
    const PanePosition at =
        Full_Image_To_Pane(photo.image, View_Centred_On(photo, top, kSessionPaneSide), col, row);
    text += "click Picture1(" + std::to_string(k) + ") " + Fixed_Decimals(at.px, 1) + " " +
            Fixed_Decimals(at.py, 1) + "\n";
  }
  return text;
}

std::string Match_Session(const Scene& scene, const std::vector<Photograph>& photos) {
  const Tree& tree = scene.trees[Model_Tree(scene, photos)];
  return Load_All_Steps(photos) + Solution_Steps({tree.X, tree.Y, tree.GroundZ}) +
         "menu Read_plot_center_data\n" + Solution_Steps({tree.X, tree.Y, tree.TopZ}) + kBoxes +
         Model_Click_Steps(tree, photos) + "menu Capture_templates\n" +
         Picture_Steps(photos, "template") + "menu Compute_Correlation_Images\n" +
         Picture_Steps(photos, "correlation") +
         "menu Create_XYZ_Point_Set\nmenu Compute_Back_Projections\n" + Result_Steps(photos);
}

}  // namespace sylvomex::demo
