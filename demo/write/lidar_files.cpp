// SPDX-License-Identifier: MIT
#include "demo/write/lidar_files.h"

#include <cmath>

#include "demo/write/packed_bytes.h"
#include "platform/files.h"
#include "solver/ray_angles.h"

namespace sylvomex::demo {
namespace {

constexpr double kTileSide = 100;  // metres

std::string Three_Digits(double whole) {
  const std::string digits = std::to_string(static_cast<int>(whole));
  return std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

/// The echo in a slot, 1 to 4; nullptr when the slot is unused.
const TracedEcho* Echo_Of_Slot(const TracedPulse& pulse, int slot) {
  const int arrival = kMostEchoes - slot;
  return arrival < pulse.count ? &pulse.echoes[static_cast<std::size_t>(arrival)] : nullptr;
}

template <class Append>
void For_Slots(const TracedPulse& pulse, Append&& append) {
  const TracedEcho unused;
  for (int slot = 1; slot <= kMostEchoes; ++slot) {
    const TracedEcho* echo = Echo_Of_Slot(pulse, slot);
    append(echo != nullptr ? *echo : unused);
  }
}

void Append_Point_2004(std::string& out, const TracedEcho& echo) {
  Append_Bytes(out, echo.X);
  Append_Bytes(out, echo.Y);
  Append_Bytes(out, static_cast<float>(echo.Z) - kHeightOffset2004);
}

}  // namespace

std::string Pulse_Record(const TracedPulse& pulse) {
  const LidarPulsePath& path = pulse.path;
  std::string record;
  record.reserve(kPulseBytes);
  Append_Bytes(record, path.time);
  Append_Bytes(record, static_cast<std::uint8_t>(pulse.count));
  For_Slots(pulse, [&record](const TracedEcho& echo) {
    for (const double value : {echo.X, echo.Y, echo.Z}) Append_Bytes(record, value);
  });
  For_Slots(pulse, [&record](const TracedEcho& echo) { Append_Bytes(record, echo.intensity); });
  For_Slots(pulse, [&record](const TracedEcho& echo) { Append_Bytes(record, echo.range); });
  Append_Bytes(record, path.angle * kDegreesPerRadian);
  Append_Bytes(record, path.roll * kDegreesPerRadian);
  Append_Bytes(record, path.pitch * kDegreesPerRadian);
  Append_Bytes(record, path.strip == 0 ? 0.0 : 180.0);
  for (const double value : {path.ray.x, path.ray.y, path.ray.z}) Append_Bytes(record, value);
  Append_Bytes(record, static_cast<std::int16_t>(path.strip + 1));
  record += static_cast<char>(path.scans_to_left ? 1 : 0);
  record += static_cast<char>(pulse.gain);
  record += static_cast<char>(path.at_line_end ? 1 : 0);
  record += static_cast<char>(pulse.count);
  return record;
}

std::string Pulse_Record_2004(const TracedPulse& pulse) {
  std::string record(44, '\0');
  Append_Point_2004(record, pulse.echoes[0]);
  record.append(8, '\0');
  Append_Point_2004(record, pulse.echoes[static_cast<std::size_t>(pulse.count) - 1]);
  record.append(8, '\0');
  return record;
}

std::string Tile_File_Name(const LidarCampaign& campaign, double X, double Y) {
  return Three_Digits(std::floor((X - campaign.tile_west) / kTileSide)) + "_" +
         Three_Digits(std::floor((Y - campaign.tile_south) / kTileSide)) + ".bin";
}

std::map<std::string, std::string> Lidar_Tiles(const LidarCampaign& campaign,
                                               const std::vector<TracedPulse>& pulses) {
  const bool first_last = campaign.year == 2004;
  const std::size_t record_bytes = first_last ? kPulseBytes2004 : kPulseBytes;
  std::map<std::string, std::string> tiles;
  for (const TracedPulse& pulse : pulses) {
    std::string& tile = tiles[Tile_File_Name(campaign, pulse.echoes[0].X, pulse.echoes[0].Y)];
    if (tile.empty()) tile.assign(4, '\0');
    tile += first_last ? Pulse_Record_2004(pulse) : Pulse_Record(pulse);
  }
  for (auto& [name, bytes] : tiles) {
    const auto count = static_cast<std::int32_t>((bytes.size() - 4) / record_bytes);
    std::memcpy(bytes.data(), &count, 4);
  }
  return tiles;
}

std::string Lidar_Folder(const LidarCampaign& campaign) {
  return "c:\\data\\laser" + std::to_string(campaign.year) + "\\";
}

void Write_Lidar(const Scene& scene, const DriveMap& drives) {
  for (const LidarCampaign& campaign : Lidar_Campaigns()) {
    const std::string folder = Lidar_Folder(campaign);
    for (const auto& [name, bytes] : Lidar_Tiles(campaign, Fly_Lidar(scene, campaign))) {
      Write_Whole_File(drives.Locate(folder + name), bytes);
    }
    Write_Whole_File(drives.Locate("c:\\data\\als" + std::to_string(campaign.year) + "_path.hdr"),
                     '"' + folder + "\"\n");
  }
}

}  // namespace sylvomex::demo
