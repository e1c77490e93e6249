// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "interchange/failures.h"
#include "products/ortho_heights.h"
#include "region/plan_block.h"
#include "region/task_needs.h"

namespace sylvomex {
namespace {

struct TileSpace {
  MapExtent extent;
  double low = 0, high = 0;  // heights that count, metres
};

TileSpace Space_Of(const PlanBlock& block, const GivenOrthoimage& ortho, const TilePlace& place) {
  TileSpace space;
  space.extent = {place.west, place.south, place.west + place.columns * ortho.cell,
                  place.south + place.rows * ortho.cell};
  const auto span = block.dem->Span(space.extent);
  const MapExtent& e = space.extent;
  const bool is_inside = block.dem->Height(e.west, e.south) && block.dem->Height(e.east, e.south) &&
                         block.dem->Height(e.west, e.north) && block.dem->Height(e.east, e.north);
  if (!span || !is_inside) throw Refused("the ground model does not cover it");
  const OrthoHeights heights{nullptr, ortho.elsewhere, ortho.lowest_ground};
  space.low = std::min(heights.Replaced(span->low), heights.Replaced(span->high));
  space.high = std::max(heights.Replaced(span->low), heights.Replaced(span->high));
  if (span->low < ortho.lowest_ground) {
    space.low = std::min(space.low, ortho.lowest_ground);
    space.high = std::max(space.high, ortho.elsewhere);
  }
  return space;
}

bool Shows_All(const RegionImage& image, const TileSpace& space) {
  const MapExtent& e = space.extent;
  for (const double X : {e.west, e.east}) {
    for (const double Y : {e.south, e.north}) {
      for (const double Z : {space.low, space.high}) {
        if (!Shows(image, {X, Y, Z})) return false;
      }
    }
  }
  return true;
}

/// Bytes of the rows of the raw file between the highest and the lowest corner.
double Row_Bytes(const RegionImage& image, const TileSpace& space) {
  const MapExtent& e = space.extent;
  double low = 1e12, high = -1e12;
  for (const double X : {e.west, e.east}) {
    for (const double Y : {e.south, e.north}) {
      for (const double Z : {space.low, space.high}) {
        const double row = Object_To_Pixel(image.camera, {X, Y, Z}).row;
        low = std::min(low, row);
        high = std::max(high, row);
      }
    }
  }
  constexpr double kAround = 64;  // rows that reading ahead brings
  const double rows = std::min(high - low + kAround, image.record.SubHeight);
  return rows * image.record.SubWidth * (image.record.ColorFlag == 1 ? 3 : 1);
}

}  // namespace

RegionTask Plan_Tile(const PlanBlock& block, const GivenOrthoimage& orthoimage, int column, int row,
                     bool uses_colour) {
  const TilePlace place = Place_Of(orthoimage, column, row);
  const TileSpace space = Space_Of(block, orthoimage, place);
  const double X = (space.extent.west + space.extent.east) / 2;
  const double Y = (space.extent.south + space.extent.north) / 2;
  for (const int k : Images_Over(block, X, Y)) {
    const RegionImage& image = block.images[static_cast<std::size_t>(k)];
    if ((image.record.ColorFlag == 1) != uses_colour || !Shows_All(image, space)) continue;
    RegionTask task;
    task.kind = TaskKind::OrthoTile;
    task.tile = {column, row, k};
    const double cells = static_cast<double>(place.columns) * place.rows;
    const TaskNeeds needs = Needs_Of_Tile(cells, uses_colour ? 3 : 1, Row_Bytes(image, space),
                                          block.dem->Window_Bytes(space.extent));
    task.cost = needs.seconds;
    task.memory_bytes = needs.bytes;
    return task;
  }
  throw Refused("no image shows the whole tile");
}

}  // namespace sylvomex
