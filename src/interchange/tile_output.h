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

/// The new tiles of an import. A tile that the site has already starts with its old records.
class TileOutput {
 public:
  /// place: the present file of a tile; new_file: where to write the new one for it.
  TileOutput(std::size_t record_bytes, std::function<std::filesystem::path(const TileKey&)> place,
             std::function<std::filesystem::path(const std::filesystem::path&)> new_file);

  /// Appends whole records. Refused for an old tile whose length contradicts its count;
  /// FailedOnTheWay on a full disk.
  void Append(const TileKey& tile, std::span<const std::uint8_t> records);

  /// Writes the counts; nothing can be appended afterwards.
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
