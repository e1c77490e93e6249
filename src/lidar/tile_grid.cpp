// SPDX-License-Identifier: MIT
#include "lidar/tile_grid.h"

#include <cmath>

#include "platform/number_text.h"

namespace sylvomex {
namespace {

struct GridOrigin {
  double X = 0, Y = 0;
};

GridOrigin Origin_Of(Campaign campaign) {
  if (campaign == Campaign::Als2004) return {2514000, 6855000};
  return {2510000, 6850000};
}

std::string Three_Characters(double index) { return Format(index, "000").substr(0, 3); }

}  // namespace

TileIndex Tile_Index(Campaign campaign, double X, double Y) {
  const GridOrigin origin = Origin_Of(campaign);
  return {std::floor((X - origin.X) / kTileSide), std::floor((Y - origin.Y) / kTileSide)};
}

std::string Tile_Name(std::string_view prefix, Campaign campaign, double X, double Y) {
  const TileIndex tile = Tile_Index(campaign, X, Y);
  return std::string(prefix) + Three_Characters(tile.col) + "_" + Three_Characters(tile.row) +
         ".bin";
}

}  // namespace sylvomex
