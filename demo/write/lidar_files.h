// SPDX-License-Identifier: MIT
// Lidar campaigns as files: binary tiles of 100 m and a one-line header with their folder.
// Little-endian, records without padding.
#pragma once

#include <map>
#include <string>

#include "demo/render/pulse_tracer.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

inline constexpr std::size_t kPulseBytes = 207;
inline constexpr std::size_t kPulseBytes2004 = 100;
inline constexpr float kHeightOffset2004 = 0.18F;  // metres, added by readers of 2004 tiles

/// The record of the 2006 and 2007 tiles. Echo slots fill from slot 4 down in order of
/// arrival; unused slots are 0. The first eight bytes are the time in seconds, PulseValue the
/// scan angle in degrees, the 24 reserved bytes roll, pitch and heading in degrees, PulseCode the
/// strip from 1, the bytes A, B and C the scan direction, the end of a scan line, and the number
/// of echoes.
std::string Pulse_Record(const TracedPulse& pulse);

/// The record of the 2004 tiles: first and last echo, their Z lowered by kHeightOffset2004. Bytes
/// that no reader uses are 0.
std::string Pulse_Record_2004(const TracedPulse& pulse);

/// "<column>_<row>.bin" of the tile that contains a position, three digits each.
std::string Tile_File_Name(const LidarCampaign& campaign, double X, double Y);

/// Tiles by file name: a 32-bit count and the records. A pulse belongs to the tile of its first
/// echo.
std::map<std::string, std::string> Lidar_Tiles(const LidarCampaign& campaign,
                                               const std::vector<TracedPulse>& pulses);

/// "c:\data\laser2006\": the folder of a campaign, including its trailing backslash.
std::string Lidar_Folder(const LidarCampaign& campaign);

/// Flies all campaigns and writes tiles and path headers.
void Write_Lidar(const Scene& scene, const DriveMap& drives);

}  // namespace sylvomex::demo
