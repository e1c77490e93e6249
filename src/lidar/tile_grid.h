// SPDX-License-Identifier: MIT
// The grid of lidar tiles: squares of 100 m, counted eastward (col) and northward (row) from
// the origin of a campaign, both from 0. A border belongs to the tile north and east of it.
#pragma once

#include <string>
#include <string_view>

namespace sylvomex {

inline constexpr double kTileSide = 100;  // metres

enum class Campaign { Als2004 = 2004, Als2006 = 2006, Als2007 = 2007 };

struct TileIndex {
  double col = 0;
  double row = 0;

  bool operator==(const TileIndex&) const = default;
};

/// The tile of a map position, metres. Positions west or south of the origin give negative
/// indices.
TileIndex Tile_Index(Campaign campaign, double X, double Y);

/// prefix + col + "_" + row + ".bin", each index with at least three digits and cut to its first
/// three characters: col 64, row 70 give "064_070.bin", 1234 gives "123", -5 gives "-00".
std::string Tile_Name(std::string_view prefix, Campaign campaign, double X, double Y);

}  // namespace sylvomex
