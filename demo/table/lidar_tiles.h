// SPDX-License-Identifier: MIT
// The pulses of a site's lidar tiles.
#pragma once

#include <array>
#include <vector>

#include "platform/drive_map.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

/// Echoes in order of arrival.
struct TilePulse {
  int count = 0;  // 1 to 4
  std::array<Point3D, 4> echoes;
};

/// All pulses of a campaign (2004, 2006 or 2007), tile by tile in name order, from the
/// folder named in the campaign's path header. A pulse of 2004 has one echo when
/// first and last are equal, else two. RunTimeError naming the file when a header or a folder
/// is missing, or when a tile is too short for its count.
std::vector<TilePulse> Read_Lidar_Campaign(const DriveMap& drives, int year);

}  // namespace sylvomex::demo
