// SPDX-License-Identifier: MIT
#include "region/planner.h"

#include <algorithm>
#include <cmath>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"
#include "region/bundles.h"
#include "region/plan_block.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostTiles = 10'000'000;

Site Site_Of(const RegionOrder& order) {
  if (!fs::is_directory(order.site)) {
    throw Refused(order.site.string() + ": there is no such folder of a site");
  }
  if (fs::exists(order.site / "site.toml")) {
    if (!order.crs.empty()) {
      throw Refused("\"crs\" is given, but " + order.site.string() +
                    " has a site.toml that says it");
    }
    return Open_Site(order.site);
  }
  if (order.crs.empty()) {
    throw Refused(order.site.string() + ": it has no site.toml, so \"crs\" must be given");
  }
  Require_Map_Metres(Coordinate_System(order.crs), order.crs);
  Site site;
  site.folder = order.site;
  site.crs = order.crs;
  return site;
}

/// A search that is asked for, in working coordinates.
struct Wanted {
  std::string id;
  OwnCell cell;
  double radius = 0;
};

std::vector<Wanted> Wanted_Plots(const RegionOrder& order, const Site& site) {
  std::vector<Wanted> wanted;
  for (const GivenPlot& plot : order.plots) {
    const Point3D at = site.Working({plot.X, plot.Y, 0});
    wanted.push_back({plot.id, {std::nullopt, at.X, at.Y, plot.radius}, plot.radius});
  }
  return wanted;
}

/// The radius whose mesh reaches the tile's corners and a little beyond, so that a tree on a seam
/// is searched from both sides.
double Radius_For_Tile(double tile, const TreeTopNumbers& numbers) {
  constexpr double kMeshPerRadius = 3.5 * 0.65;
  constexpr double kRounding = 1;  // the mesh has a side of whole metres
  return (tile + 2 * (numbers.XYt + 2 * numbers.Mesh) + kRounding) / kMeshPerRadius;
}

std::vector<Wanted> Wanted_Tiles(const RegionOrder& order, const Site& site) {
  const GivenArea& area = *order.area;
  const double columns = std::ceil((area.extent.east - area.extent.west) / area.tile);
  const double rows = std::ceil((area.extent.north - area.extent.south) / area.tile);
  if (columns * rows > static_cast<double>(kMostTiles)) {
    throw Refused("the [area] has " + Plain_Text(columns * rows) +
                  " tiles, more than a plan holds");
  }
  const Point3D corner = site.Working({area.extent.west, area.extent.south, 0});
  const double radius = Radius_For_Tile(area.tile, order.numbers);
  std::vector<Wanted> wanted;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < columns; ++col) {
      const double west = corner.X + col * area.tile, south = corner.Y + row * area.tile;
      const MapExtent tile{west, south, west + area.tile, south + area.tile};
      wanted.push_back({"r" + std::to_string(row) + "-c" + std::to_string(col),
                        {tile, west + area.tile / 2, south + area.tile / 2, area.tile / 2},
                        radius});
    }
  }
  return wanted;
}

GivenOrthoimage Working_Orthoimage(const RegionOrder& order, const Site& site) {
  GivenOrthoimage ortho = *order.orthoimage;
  const Point3D low = site.Working({ortho.extent.west, ortho.extent.south, 0});
  const Point3D high = site.Working({ortho.extent.east, ortho.extent.north, 0});
  ortho.extent = {low.X, low.Y, high.X, high.Y};
  const TileGrid2D grid = Tiles_Of(ortho);
  const double tiles = static_cast<double>(grid.tile_columns) * grid.tile_rows;
  if (tiles > static_cast<double>(kMostTiles)) {
    throw Refused("the [orthoimage] has " + Plain_Text(tiles) + " tiles, more than a plan holds");
  }
  return ortho;
}

/// The ground of every image at the heights of the region's places, with room for trees and slopes.
void Find_Grounds(PlanBlock& block, const std::vector<Wanted>& wanted,
                  const std::optional<GivenOrthoimage>& ortho) {
  constexpr double kRoom = 100;  // metres
  double low = 1e9, high = -1e9;
  const auto take = [&](double X, double Y) {
    const auto height = block.dem->Height(X, Y);
    if (!height) return;
    low = std::min(low, *height);
    high = std::max(high, *height);
  };
  for (const Wanted& one : wanted) take(one.cell.X, one.cell.Y);
  if (ortho) {
    const auto span = block.dem->Span(ortho->extent);
    low = std::min({low, span ? span->low : low, ortho->elsewhere});
    high = std::max({high, span ? span->high : high, ortho->elsewhere});
  }
  for (const RegionImage& image : block.images) {
    block.grounds.push_back(Ground_Of(image, low - kRoom, high + kRoom));
  }
}

void Plan_Plots(const PlanBlock& block, const std::vector<Wanted>& wanted, RegionPlan& plan) {
  for (const Wanted& one : wanted) {
    try {
      plan.tasks.push_back(Plan_Plot(block, one.id, one.cell, one.radius));
    } catch (const Refused& refusal) {
      plan.left_out.push_back({one.id, refusal.what()});
    } catch (const RunTimeError& error) {
      plan.left_out.push_back({one.id, error.what()});
    }
  }
}

bool Uses_Colour(const PlanBlock& block) {
  return std::any_of(block.images.begin(), block.images.end(),
                     [](const RegionImage& image) { return image.record.ColorFlag == 1; });
}

void Plan_Tiles(const PlanBlock& block, const GivenOrthoimage& ortho, RegionPlan& plan) {
  const TileGrid2D grid = Tiles_Of(ortho);
  const bool uses_colour = Uses_Colour(block);
  for (int row = 0; row < grid.tile_rows; ++row) {
    for (int col = 0; col < grid.tile_columns; ++col) {
      const std::string id = "ortho-r" + std::to_string(row) + "-c" + std::to_string(col);
      try {
        RegionTask task = Plan_Tile(block, ortho, col, row, uses_colour);
        task.id = id;
        plan.tasks.push_back(std::move(task));
      } catch (const Refused& refusal) {
        plan.left_out.push_back({id, refusal.what()});
      }
    }
  }
}

/// Plots that a plot overlaps, of those that are not west of it.
struct Overlap {
  const Wanted* nearest = nullptr;
  double distance = 0;
  int count = 0;

  void Add(const Wanted& other, double at) {
    ++count;
    if (nearest != nullptr && at >= distance) return;
    nearest = &other;
    distance = at;
  }
};

std::string Overlap_Text(const Overlap& overlap) {
  const std::string more =
      overlap.count > 1 ? " and " + std::to_string(overlap.count - 1) + " more" : "";
  return "it overlaps plot " + overlap.nearest->id + more + ", their centres are " +
         Format(overlap.distance, "0.0") + " m apart; a tree of both is merged to one";
}

/// Notes the plots whose circles meet, going from west to east.
void Note_Overlaps(std::vector<Wanted> wanted, std::vector<PlanNote>& notes) {
  std::sort(wanted.begin(), wanted.end(),
            [](const Wanted& a, const Wanted& b) { return a.cell.X < b.cell.X; });
  double largest = 0;
  for (const Wanted& one : wanted) largest = std::max(largest, one.radius);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const Wanted& a = wanted[i];
    Overlap overlap;
    for (std::size_t j = i + 1;
         j < wanted.size() && wanted[j].cell.X - a.cell.X < a.radius + largest; ++j) {
      const Wanted& b = wanted[j];
      const double distance = std::hypot(b.cell.X - a.cell.X, b.cell.Y - a.cell.Y);
      if (distance < a.radius + b.radius) overlap.Add(b, distance);
    }
    if (overlap.count > 0) notes.push_back({a.id, Overlap_Text(overlap)});
  }
}

}  // namespace

std::vector<int> Images_Over(const PlanBlock& block, double X, double Y) {
  std::vector<std::pair<double, int>> over;
  for (std::size_t k = 0; k < block.images.size(); ++k) {
    const MapExtent& ground = block.grounds[k];
    if (X < ground.west || X > ground.east || Y < ground.south || Y > ground.north) continue;
    over.emplace_back(Distance_From_Nadir(block.images[k], X, Y), static_cast<int>(k));
  }
  std::sort(over.begin(), over.end());
  std::vector<int> images;
  images.reserve(over.size());
  for (const auto& [distance, image] : over) images.push_back(image);
  return images;
}

RegionPlan Plan_Region(const RegionOrder& order, int bundle) {
  PlanBlock block{order, Site_Of(order), {}, {}, {}, {}, {}};
  RegionPlan plan;
  plan.site = fs::weakly_canonical(order.site);
  plan.crs = block.site.crs;
  plan.shift = block.site.shift.value_or(WorldShift{});
  plan.dem = order.dem;
  plan.chm = order.chm;
  plan.numbers = order.numbers;
  const DriveMap drives = block.site.Drives();
  block.images = Read_Images(drives, order, plan.notes);
  for (const RegionImage& image : block.images) plan.headers.push_back(image.header);
  block.dem = std::make_unique<MappedModel>(drives, order.dem);
  const std::vector<Wanted> wanted =
      order.area ? Wanted_Tiles(order, block.site) : Wanted_Plots(order, block.site);
  if (!wanted.empty()) {
    block.chm = std::make_unique<MappedModel>(drives, order.chm);
    block.trees = Read_Model_Trees(order.model_trees, block.site);
  }
  if (order.orthoimage) plan.orthoimage = Working_Orthoimage(order, block.site);
  Find_Grounds(block, wanted, plan.orthoimage);
  if (!order.area) Note_Overlaps(wanted, plan.notes);
  Plan_Plots(block, wanted, plan);
  if (plan.orthoimage) Plan_Tiles(block, *plan.orthoimage, plan);
  if (plan.tasks.empty()) {
    throw Refused("no task is left; " + plan.left_out.front().id + ": " +
                  plan.left_out.front().cause);
  }
  plan.bundles = Even_Bundles(plan.tasks, bundle);
  return plan;
}

}  // namespace sylvomex
