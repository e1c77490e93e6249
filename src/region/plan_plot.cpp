// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>

#include "interchange/failures.h"
#include "matching/correlation_volume.h"
#include "matching/patch_geometry.h"
#include "matching/tree_top_steps.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "region/plan_block.h"
#include "region/task_needs.h"

namespace sylvomex {
namespace {

/// The layer of space that a search goes through.
struct Layer {
  MapExtent mesh;
  HeightSpan ground, canopy;
  Point3D centre;
  double side = 0;
};

std::string Place_Text(const PlanBlock& block, double X, double Y) {
  const Point3D world = block.site.World({X, Y, 0});
  return "X " + Format(world.X, "0.00") + ", Y " + Format(world.Y, "0.00");
}

MapExtent Square_Around(double X, double Y, double half) {
  return {X - half, Y - half, X + half, Y + half};
}

std::array<std::array<double, 2>, 4> Corners(const MapExtent& extent) {
  return {{{extent.west, extent.south},
           {extent.east, extent.south},
           {extent.west, extent.north},
           {extent.east, extent.north}}};
}

void Require_Heights(const PlanBlock& block, const MappedModel& model, const char* what,
                     const Layer& layer) {
  const auto require = [&](double X, double Y) {
    if (model.Height(X, Y)) return;
    throw Refused(std::string("the ") + what + " model has no height at " +
                  Place_Text(block, X, Y));
  };
  require(layer.centre.X, layer.centre.Y);
  for (const auto& [X, Y] : Corners(layer.mesh)) require(X, Y);
}

Layer Layer_Of(const PlanBlock& block, double X, double Y, double radius) {
  Layer layer;
  layer.side = Mesh_Side_Of(Patch_Size_Of(radius));
  layer.centre = {X, Y, 0};
  layer.mesh = Square_Around(X, Y, layer.side / 2);
  Require_Heights(block, *block.dem, "ground", layer);
  if (!block.chm->Height(X, Y)) Require_Heights(block, *block.chm, "canopy", layer);
  layer.centre.Z = *block.dem->Height(X, Y);
  layer.ground = *block.dem->Span(layer.mesh);
  layer.canopy = *block.chm->Span(layer.mesh);
  return layer;
}

/// The outermost points of the cell, on the ground and at the layer's upper limit.
std::vector<Point3D> Outline_Of(const OwnCell& cell, const Layer& layer, double top_factor) {
  std::vector<std::array<double, 2>> places;
  if (cell.tile) {
    for (const auto& corner : Corners(*cell.tile)) places.push_back(corner);
  } else {
    places = {{cell.X - cell.radius, cell.Y},
              {cell.X + cell.radius, cell.Y},
              {cell.X, cell.Y - cell.radius},
              {cell.X, cell.Y + cell.radius}};
  }
  const double upper =
      layer.ground.mean + top_factor * std::max(0.0, layer.canopy.high - layer.ground.mean);
  std::vector<Point3D> outline;
  for (const auto& [X, Y] : places) {
    for (const double Z : {layer.ground.low, upper}) outline.push_back({X, Y, Z});
  }
  return outline;
}

bool Shows_All(const RegionImage& image, const std::vector<Point3D>& points) {
  return std::all_of(points.begin(), points.end(),
                     [&image](const Point3D& point) { return Shows(image, point); });
}

/// The side of the patch as it is read; nothing when it does not fit the table of correlations.
std::optional<double> Side_In(const RegionImage& image, const Layer& layer, double radius) try {
  const double ground_side = Ground_Pixel_Side(
      image.record, Pixel_Side_Micrometres(image.record, [](std::string_view) {}), layer.centre.Z);
  const auto side = Patch_Side(Patch_Size_Of(radius), ground_side);
  if (!side) return std::nullopt;
  const RawWindow window = Place_Patch(image.record, image.camera, layer.centre, *side).window;
  const int longer = std::max(window.Width(), window.Height());
  if (longer > kVolumeSide) return std::nullopt;
  return longer;
} catch (const RunTimeError&) {
  return std::nullopt;
}

std::vector<int> Images_For(const PlanBlock& block, const OwnCell& cell, const Layer& layer,
                            double radius) {
  const std::vector<Point3D> outline = Outline_Of(cell, layer, block.order.numbers.fHDOM);
  std::vector<int> showing, fitting;
  for (const int k : Images_Over(block, layer.centre.X, layer.centre.Y)) {
    const RegionImage& image = block.images[static_cast<std::size_t>(k)];
    if (!Shows_All(image, outline)) continue;
    showing.push_back(k);
    if (Side_In(image, layer, radius)) fitting.push_back(k);
  }
  if (showing.empty()) throw Refused("it lies outside all images");
  if (fitting.size() >= static_cast<std::size_t>(block.order.least_images)) return fitting;
  const bool is_too_large = fitting.size() < showing.size();
  throw Refused(std::to_string(fitting.size()) + " of the images that show it can be used" +
                (is_too_large
                     ? " (in the others its patch has more than 1201 pixels a side; a smaller "
                       "radius or tile has a smaller one)"
                     : "") +
                ", " + std::to_string(block.order.least_images) + " are needed");
}

/// Points on the outline of a tree's crown as its template takes it.
std::vector<Point3D> Crown_Of(const Point3D& top, const TemplateParameters& crown) {
  const double Z = top.Z + crown.EZA;
  return {top,
          {top.X + crown.Tw, top.Y, Z},
          {top.X - crown.Tw, top.Y, Z},
          {top.X, top.Y + crown.Tw, Z},
          {top.X, top.Y - crown.Tw, Z},
          {top.X, top.Y, Z + crown.Zd},
          {top.X, top.Y, Z - crown.Zd}};
}

std::vector<std::pair<double, const ModelTree*>> Trees_In_Reach(const PlanBlock& block,
                                                                const Point3D& centre) {
  std::vector<std::pair<double, const ModelTree*>> trees;
  for (const ModelTree& tree : block.trees) {
    const double distance = std::hypot(tree.top.X - centre.X, tree.top.Y - centre.Y);
    if (distance <= block.order.reach) trees.emplace_back(distance, &tree);
  }
  std::sort(trees.begin(), trees.end());
  return trees;
}

/// The nearest model tree that enough of the images show, with them.
std::pair<const ModelTree*, std::vector<int>> Tree_For(const PlanBlock& block, const Layer& layer,
                                                       const std::vector<int>& images) {
  for (const auto& [distance, tree] : Trees_In_Reach(block, layer.centre)) {
    if (!block.dem->Height(tree->top.X, tree->top.Y)) continue;
    const std::vector<Point3D> crown = Crown_Of(tree->top, block.order.numbers.crown);
    std::vector<int> both;
    for (const int k : images) {
      if (Shows_All(block.images[static_cast<std::size_t>(k)], crown)) both.push_back(k);
    }
    if (both.size() >= static_cast<std::size_t>(block.order.least_images)) return {tree, both};
  }
  throw Refused("no model tree within " + Plain_Text(block.order.reach) + " m is shown by " +
                std::to_string(block.order.least_images) + " of its images");
}

void Require_Mesh(double spacing, double side) {
  const double columns = std::floor(side / spacing) + 1;
  if (columns * columns <= kMostMeshPoints) return;
  throw Refused("its mesh has " + Plain_Text(columns * columns) + " columns, at most " +
                Plain_Text(kMostMeshPoints) + " fit; a larger Mesh has fewer");
}

TaskNeeds Needs_Of(const PlanBlock& block, const PlotTask& plot, const Layer& layer) {
  std::vector<PatchNeeds> patches;
  for (const int k : plot.images) {
    const RegionImage& image = block.images[static_cast<std::size_t>(k)];
    patches.push_back({Side_In(image, layer, plot.radius).value_or(0), image.record.SubWidth,
                       image.record.ColorFlag == 1 ? 3.0 : 1.0});
  }
  const TreeTopNumbers& numbers = block.order.numbers;
  Require_Mesh(numbers.Mesh, layer.side);
  const double most = std::min(
      Mesh_Points(numbers, layer.side, layer.canopy.high - layer.ground.low), kMostMeshPoints);
  const double usual = Mesh_Points(numbers, layer.side, layer.canopy.mean - layer.ground.mean);
  return Needs_Of_Search(patches, most, usual,
                         block.dem->Window_Bytes(layer.mesh) + block.chm->Window_Bytes(layer.mesh));
}

}  // namespace

RegionTask Plan_Plot(const PlanBlock& block, const std::string& id, const OwnCell& cell,
                     double radius) {
  const Layer layer = Layer_Of(block, cell.X, cell.Y, radius);
  RegionTask task;
  PlotTask& plot = task.plot;
  const auto [tree, images] = Tree_For(block, layer, Images_For(block, cell, layer, radius));
  plot.images = images;
  if (plot.images.size() > static_cast<std::size_t>(block.order.most_images)) {
    plot.images.resize(static_cast<std::size_t>(block.order.most_images));
  }
  std::sort(plot.images.begin(), plot.images.end());
  task.id = "tops-" + id;
  plot.plot = id;
  plot.cell = cell;
  plot.centre = layer.centre;
  plot.radius = radius;
  plot.model_tree = tree->id;
  plot.model_top = tree->top;
  const TaskNeeds needs = Needs_Of(block, plot, layer);
  task.cost = needs.seconds;
  task.memory_bytes = needs.bytes;
  return task;
}

}  // namespace sylvomex
