// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <utility>

#include "lidar/tile_grid.h"

namespace sylvomex {

/// Column and row of a tile.
using TileKey = std::pair<std::int32_t, std::int32_t>;

/// "064_070.bin".
std::string Tile_File_Name(const TileKey& tile);

/// Where records of a tile go.
struct TileRoom {
  std::filesystem::path file, place;  // the new file, and the tile that it will be
  std::uint64_t at = 0;               // bytes from its start
};

/// Writes whole records; safe from several threads, each with a room of its own. FailedOnTheWay on
/// a full disk.
void Write_Records(const TileRoom& room, std::span<const std::uint8_t> records);

/// The new tiles of an import. A tile that the site has already starts with its old records.
class TileOutput {
 public:
  /// place: the present file of a tile; new_file: where to write the new one for it.
  TileOutput(std::size_t record_bytes, std::function<std::filesystem::path(const TileKey&)> place,
             std::function<std::filesystem::path(const std::filesystem::path&)> new_file);

  /// The place behind the tile's last records for as many more. Refused for an old tile whose
  /// length contradicts its count; FailedOnTheWay on a full disk.
  TileRoom Take_Room(const TileKey& tile, std::uint64_t records);

  /// Writes the counts, when all rooms are filled.
  void Finish();

  [[nodiscard]] std::size_t Count() const { return tiles_.size(); }

 private:
  struct Tile {
    std::filesystem::path place, file;
    std::uint64_t records = 0;
  };
  void Begin(const TileKey& key, Tile& tile) const;

  std::size_t record_bytes_;
  std::function<std::filesystem::path(const TileKey&)> place_;
  std::function<std::filesystem::path(const std::filesystem::path&)> new_file_;
  std::map<TileKey, Tile> tiles_;
};

}  // namespace sylvomex
