// SPDX-License-Identifier: MIT
#include "commands/lidar/pulse_listing.h"

#include <string>

#include "closedlib/counted_loop.h"
#include "commands/lidar/lidar_inputs.h"
#include "lidar/echo_listing.h"
#include "platform/files.h"
#include "services/progress.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kListing = "D:\\als_2516400_2517500_6856700_6858100_ALS_2007.txt";
constexpr double kFirstX = 2516405, kLastX = 2517505;  // metres
constexpr double kFirstY = 6856705, kLastY = 6858105;
constexpr std::size_t kLongText = std::size_t{1} << 22;  // characters buffered before writing

enum class Listing { GoesOn, Ends };

// Appends the lines of a tile with count pulses to the end of the file.
Listing List_Tile(Workspace& w, const FilePath& tile, std::int32_t count, const FilePath& listing) {
  const auto ground = [&w](double X, double Y) { return Get_Raster_Elevation(w, X, Y); };
  std::int32_t i = 1;
  const auto complain = [&] {
    Show_With_Cause(w, "!", tile.name + ", pulse " + std::to_string(i));
  };
  std::string lines;
  Listing after = Listing::GoesOn;
  WorkMeter meter(count);
  for (; i <= count && after == Listing::GoesOn; ++i) {
    meter.Step();
    if (!List_Pulse(w.LidarPulses(i), ground, complain, lines)) after = Listing::Ends;
    if (lines.size() < kLongText) continue;
    Append_To_File(listing, lines);
    lines.clear();
  }
  if (!lines.empty()) Append_To_File(listing, lines);
  return after;
}

Listing List_Tile_At(Workspace& w, const std::string& name, const FilePath& listing) {
  const FilePath tile = w.Drives.Locate(name);
  if (!File_Exists(tile)) return Listing::GoesOn;
  Progress(w).Report(name);
  return List_Tile(w, tile, Read_Pulse_Tile(tile, w.LidarPulses), listing);
}

}  // namespace

void Print_ALS_in_ASCII(Workspace& w) {
  const std::string prefix = Read_Tile_Prefix(w, Campaign::Als2007);
  const FilePath listing = w.Drives.Locate(kListing);
  Write_Whole_File(listing, "");
  const int columns = Loop_Passes(kFirstX, kLastX, kTileSide);
  const int rows = Loop_Passes(kFirstY, kLastY, kTileSide);
  for (int i = 0; i < columns; ++i) {
    for (int j = 0; j < rows; ++j) {
      const std::string name =
          Tile_Name(prefix, Campaign::Als2007, kFirstX + i * kTileSide, kFirstY + j * kTileSide);
      if (List_Tile_At(w, name, listing) == Listing::Ends) return;
    }
  }
}

}  // namespace sylvomex
