// SPDX-License-Identifier: MIT
#include "commands/lidar/density_map.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "commands/lidar/lidar_inputs.h"
#include "lidar/counted_file.h"
#include "lidar/echo_selection.h"
#include "platform/files.h"
#include "services/progress.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kTileCols = 100, kTileRows = 150;         // tiles of the map
constexpr int kMapCols = 200, kMapRows = 400;           // pixels of the raster
constexpr double kFirstX = 2510050, kFirstY = 6850050;  // inside the first tile, metres
constexpr double kTileArea = kTileSide * kTileSide;     // square metres
constexpr ValueScale kDensityScale{0, 20};              // pulses per square metre

std::string Without_Folder(const std::string& name) {
  return name.substr(name.find_last_of("\\/:") + 1);
}

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

// The tiles of a campaign. Their folder is listed once instead of probing 15000 possible names.
class CampaignTiles {
 public:
  CampaignTiles(const Workspace& w, Campaign campaign)
      : campaign_(campaign), prefix_(Read_Tile_Prefix(w, campaign)) {
    for (const FilePath& file : w.Drives.Match(prefix_ + "???_???.bin")) {
      files_.emplace(Lower(file.name), file);
    }
  }

  /// Moves to the tile at a position; false when there is none.
  bool Go_To(double X, double Y) {
    const auto found = files_.find(Lower(Tile_Name(prefix_, campaign_, X, Y)));
    tile_ = found == files_.end() ? nullptr : &found->second;
    return tile_ != nullptr;
  }

  [[nodiscard]] std::string Found_Name() const {
    return tile_ == nullptr ? "" : Without_Folder(tile_->name);
  }

  /// Pulses of the tile; without a tile, the count of the previous existing one.
  double Pulses() {
    if (tile_ != nullptr) pulses_ = Read_Record_Count(*tile_);
    return pulses_;
  }

 private:
  Campaign campaign_;
  std::string prefix_;
  std::map<std::string, FilePath> files_;  // by lower-case name
  const FilePath* tile_ = nullptr;
  double pulses_ = 0;
};

// Red, green and blue bytes, columns fastest; tile (0, 0) is the first pixel.
class DensityMap {
 public:
  void Set(int col, int row, Colour colour) {
    const auto at = 3 * (static_cast<std::size_t>(row) * kMapCols + static_cast<std::size_t>(col));
    bytes_[at] = colour.r;
    bytes_[at + 1] = colour.g;
    bytes_[at + 2] = colour.b;
  }

  [[nodiscard]] const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
  std::vector<std::uint8_t> bytes_ = std::vector<std::uint8_t>(3 * kMapCols * kMapRows);
};

Colour Density_Colour(const ColourMap& colours, double pulses) {
  const double density = kDensityScale.Below_Top(pulses / kTileArea);
  return colours(Colour_Row(density, kDensityScale.lowest, kDensityScale.highest));
}

}  // namespace

void Make_Lidar_Intensity_Map(Workspace& w) {
  const ColourMap colours = Read_Colours(w);
  CampaignTiles tiles_2006(w, Campaign::Als2006);
  CampaignTiles tiles_2007(w, Campaign::Als2007);
  DensityMap map;
  Progress progress(w);
  WorkMeter meter(kTileCols);
  for (int col = 0; col < kTileCols; ++col) {
    for (int row = 0; row < kTileRows; ++row) {
      const double X = kFirstX + col * kTileSide;
      const double Y = kFirstY + row * kTileSide;
      const bool in_2006 = tiles_2006.Go_To(X, Y);
      const bool in_2007 = tiles_2007.Go_To(X, Y);
      progress.Report(tiles_2006.Found_Name() + " " + tiles_2007.Found_Name());
      if (!in_2006 && !in_2007) continue;
      map.Set(col, row, Density_Colour(colours, tiles_2006.Pulses() + tiles_2007.Pulses()));
    }
    meter.Step();
  }
  Write_Whole_File(w.Drives.Locate("c:\\temp\\LiDMap.raw"), map.Bytes());
}

}  // namespace sylvomex
