// SPDX-License-Identifier: MIT
#include "demo/scene/scene.h"

#include <cmath>
#include <numbers>
#include <string>

#include "demo/scene/stand.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

void Check_Range(const char* name, double value, double low, double high) {
  if (value >= low && value <= high) return;
  throw RunTimeError(Failure::BadContent, std::string(name) + " is " + Plain_Text(value) +
                                              ", must be " + Plain_Text(low) + " to " +
                                              Plain_Text(high));
}

void Check_Settings(const SiteSettings& settings) {
  Check_Range("stand density", settings.stems_per_hectare, 10, 600);
  Check_Range("share of pine", settings.pine_share, 0, 1e6);
  Check_Range("share of spruce", settings.spruce_share, 0, 1e6);
  Check_Range("share of birch", settings.birch_share, 0, 1e6);
  Check_Range("sum of the species shares",
              settings.pine_share + settings.spruce_share + settings.birch_share, 1e-6, 3e6);
  Check_Range("sun azimuth", settings.sun_azimuth_deg, 0, 360);
  Check_Range("sun elevation", settings.sun_elevation_deg, 20, 90);
  Check_Range("pixel noise", settings.noise_sigma, 0, 60);
  Check_Range("pixel scale", settings.pixel_scale, 1, 20);
  Check_Range("share of lidar pulses", settings.pulse_share, 0.001, 1);
  Check_Range("margin around the forest", settings.margin, 0, 250);
  Check_Range("number of threads", settings.threads, 0, 1024);
}

}  // namespace

Scene Build_Scene(const SiteSettings& settings) {
  Check_Settings(settings);
  Scene scene;
  scene.settings = settings;
  scene.ground = Make_Ground(settings.seed);
  scene.trees = Plant_Stand(settings, scene.ground);
  scene.grid = Make_Tree_Grid(scene.trees);
  scene.sun_azimuth = settings.sun_azimuth_deg * std::numbers::pi / 180;
  scene.sun_elevation = settings.sun_elevation_deg * std::numbers::pi / 180;
  scene.sun = {std::cos(scene.sun_elevation) * std::sin(scene.sun_azimuth),
               std::cos(scene.sun_elevation) * std::cos(scene.sun_azimuth),
               std::sin(scene.sun_elevation)};
  return scene;
}

double Ground_Height(const Scene& scene, double X, double Y) {
  return Ground_Height(scene.ground, X, Y);
}

double Canopy_Height(const Scene& scene, double X, double Y) {
  double highest = Ground_Height(scene.ground, X, Y);
  const int cell = Cell_At(scene.grid, X, Y);
  if (cell < 0) return highest;
  for (const int item : Trees_Of_Cell(scene.grid, cell)) {
    const Tree& tree = scene.trees[static_cast<std::size_t>(item)];
    const auto depth = Crown_Depth_At(tree, std::hypot(X - tree.X, Y - tree.Y));
    if (depth) highest = std::max(highest, tree.TopZ - *depth);
  }
  return highest;
}

std::size_t Centre_Tree(const Scene& scene, double least_height) {
  const double middle = kForestSide / 2;
  std::size_t nearest = scene.trees.size();
  double least = 1e30;
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    const Tree& tree = scene.trees[i];
    const double distance =
        std::hypot(tree.X - kForestWest - middle, tree.Y - kForestSouth - middle);
    if (tree.Height() < least_height || distance >= least) continue;
    least = distance;
    nearest = i;
  }
  if (nearest == scene.trees.size()) {
    throw RunTimeError(Failure::BadContent, "no tree of at least " + Plain_Text(least_height) +
                                                " m stands in the forest");
  }
  return nearest;
}

}  // namespace sylvomex::demo
