// SPDX-License-Identifier: MIT
#include "demo/table/lidar_tiles.h"

#include <cstdint>
#include <cstring>
#include <string>

#include "demo/write/lidar_files.h"
#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

template <class Number>
Number Number_At(const std::string& bytes, std::size_t at) {
  Number value;
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

TilePulse First_And_Last(const std::string& tile, std::size_t record) {
  const auto point = [&](std::size_t at) {
    const float Z = Number_At<float>(tile, at + 16) + kHeightOffset2004;
    return Point3D{Number_At<double>(tile, at), Number_At<double>(tile, at + 8),
                   static_cast<double>(Z)};
  };
  TilePulse pulse;
  pulse.echoes[0] = point(record + 44);
  pulse.echoes[1] = point(record + 72);
  const bool single = pulse.echoes[0].Z == pulse.echoes[1].Z;
  pulse.count = single ? 1 : 2;
  return pulse;
}

TilePulse Four_Slots(const std::string& tile, std::size_t record) {
  TilePulse pulse;
  for (int slot = 4; slot >= 1; --slot) {
    const std::size_t at = record + 9 + 24 * static_cast<std::size_t>(slot - 1);
    const Point3D echo{Number_At<double>(tile, at), Number_At<double>(tile, at + 8),
                       Number_At<double>(tile, at + 16)};
    if (echo.X == 0) break;
    pulse.echoes[static_cast<std::size_t>(pulse.count++)] = echo;
  }
  return pulse;
}

void Add_Tile(const FilePath& file, int year, std::vector<TilePulse>& pulses) {
  const std::string tile = Read_Whole_File(file);
  const std::size_t bytes = year == 2004 ? kPulseBytes2004 : kPulseBytes;
  const auto count = tile.size() < 4 ? -1 : Number_At<std::int32_t>(tile, 0);
  if (count < 0 || tile.size() != 4 + bytes * static_cast<std::size_t>(count)) {
    throw RunTimeError(
        Failure::BadContent,
        file.name + ": " + std::to_string(tile.size()) + " bytes are no tile of whole records",
        file.native);
  }
  for (std::size_t record = 4; record < tile.size(); record += bytes) {
    pulses.push_back(year == 2004 ? First_And_Last(tile, record) : Four_Slots(tile, record));
  }
}

}  // namespace

std::vector<TilePulse> Read_Lidar_Campaign(const DriveMap& drives, int year) {
  const std::string header = "c:\\data\\als" + std::to_string(year) + "_path.hdr";
  const std::string folder = ListReader(drives.Locate(header)).Read_Text_To_Comma();
  const std::vector<FilePath> tiles = drives.Match(folder + "*.bin");
  if (tiles.empty()) {
    throw RunTimeError(Failure::FileNotFound, folder + "*.bin", drives.Locate(folder).native);
  }
  std::vector<TilePulse> pulses;
  for (const FilePath& tile : tiles) Add_Tile(tile, year, pulses);
  return pulses;
}

}  // namespace sylvomex::demo
