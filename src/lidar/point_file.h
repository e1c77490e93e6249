// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "platform/drive_map.h"

namespace sylvomex {

/// An echo of a point list; 21 packed bytes in a file.
struct LidarPoint {
  std::uint8_t EchoClass = 0;  // class code, or the slot that the echo came from
  double X = 0, Y = 0;         // metres
  float Z = 0;
};

/// All points of a point file (a 32-bit count, then the points), in order.
/// RunTimeError(FileNotFound), or (BadContent) for a negative count and for a file too short
/// for its count.
std::vector<LidarPoint> Read_Point_File(const FilePath& file);

}  // namespace sylvomex
