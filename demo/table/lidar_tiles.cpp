// SPDX-License-Identifier: MIT
#include "demo/table/lidar_tiles.h"

#include <string>

#include "demo/write/lidar_files.h"
#include "lidar/path_header.h"
#include "lidar/pulse_table.h"
#include "lidar/tile_2004.h"
#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

TilePulse First_And_Last(const Lidar2004Record& record) {
  const auto point = [](double X, double Y, float Z) {
    return Point3D{X, Y, static_cast<double>(Z + kHeightOffset2004)};
  };
  TilePulse pulse;
  pulse.echoes[0] = point(record.FirstX, record.FirstY, record.FirstZ);
  pulse.echoes[1] = point(record.LastX, record.LastY, record.LastZ);
  const bool single = pulse.echoes[0].Z == pulse.echoes[1].Z;
  pulse.count = single ? 1 : 2;
  return pulse;
}

TilePulse Four_Slots(const LidarPulse& record) {
  TilePulse pulse;
  for (int slot = kEchoSlots; slot >= 1 && record.Slot(slot).X != 0; --slot) {
    const LidarEcho& echo = record.Slot(slot);
    pulse.echoes[static_cast<std::size_t>(pulse.count++)] = {echo.X, echo.Y, echo.Z};
  }
  return pulse;
}

void Add_Tile(const FilePath& file, int year, std::vector<TilePulse>& pulses) {
  if (year == 2004) {
    for (const Lidar2004Record& record : Read_Tile_2004(file)) {
      pulses.push_back(First_And_Last(record));
    }
    return;
  }
  PulseTable table;
  const std::int32_t count = Read_Pulse_Tile(file, table);
  for (std::int32_t i = 1; i <= count; ++i) pulses.push_back(Four_Slots(table(i)));
}

}  // namespace

std::vector<TilePulse> Read_Lidar_Campaign(const DriveMap& drives, int year) {
  const std::string header = "c:\\data\\als" + std::to_string(year) + "_path.hdr";
  const std::string folder = Read_Path_Header(drives.Locate(header));
  const std::vector<FilePath> tiles = drives.Match(folder + "*.bin");
  if (tiles.empty()) {
    throw RunTimeError(Failure::FileNotFound, folder + "*.bin", drives.Locate(folder).native);
  }
  std::vector<TilePulse> pulses;
  for (const FilePath& tile : tiles) Add_Tile(tile, year, pulses);
  return pulses;
}

}  // namespace sylvomex::demo
