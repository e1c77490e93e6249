// SPDX-License-Identifier: MIT
// Tile files: for each square of 100 m the triangles that touch it, made outside this system.
// A file holds a 32-bit count n and n 32-bit triangle numbers, little-endian.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "heightmodels/tin_lookup.h"
#include "platform/drive_map.h"

namespace sylvomex {

/// The triangle numbers of a file, none when it is empty or does not exist; bytes behind the last
/// number do not count. RunTimeError(BadContent) naming the file and both lengths for a negative
/// count and for a file that is too short for its count.
std::vector<std::int32_t> Read_Tin_Tile(const FilePath& file);

/// "c:\data\Tris\003012.bin": column and row of the square from the corner TileMinX, TileMinY.
std::string Tin_Tile_Name(const TinModel& model, double X, double Y);

/// The tile files as far as they were asked for; each is read once. Serves the lookups of one
/// command.
class TinTiles {
 public:
  explicit TinTiles(const DriveMap& drives) : drives_(drives) {}

  /// The first triangle of the point's tile file that holds the point, 0 for none. certain: the
  /// one triangle of the model that can hold it, 0 where that is not known. A number outside
  /// the model's table is a RunTimeError(SubscriptOutOfRange) naming file and item, as soon as
  /// the search reaches it.
  std::int32_t First_Holder(const TinModel& model, double X, double Y, std::int32_t certain);

 private:
  struct Tile {
    FilePath file;
    std::vector<std::int32_t> numbers;
    std::int32_t least = 1, greatest = 0;  // of the numbers
  };
  const Tile& Tile_At(const TinModel& model, double X, double Y);

  const DriveMap& drives_;
  std::map<std::string, Tile> tiles_;
};

/// Terrain by tiles: the hinted triangle, then those of the tile file in its order, then all in
/// the order of their numbers; -99 west or east of the tile bounds and where no triangle holds
/// the point. hint: a triangle number, 0 for none; left at the triangle found, 0 after -99.
double Tin_Elevation_Tiled(const TinModel& model, double X, double Y, std::int32_t& hint,
                           TinTiles& tiles);

}  // namespace sylvomex
