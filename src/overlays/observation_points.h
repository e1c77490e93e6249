// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "platform/drive_map.h"
#include "platform/point3d.h"

namespace sylvomex {

struct ObservationPoint {
  std::int16_t number = 0;  // measurement number
  Point3D at;
};

/// The points of an observation file, from the first four comma-separated fields of each line. Only
/// the first 100 characters of a line are scanned for the three commas between them; Z extends to
/// the next comma or the line's end, wherever that lies. Lines with X of 1.0 or less and blank
/// lines are skipped.
///
/// RunTimeError(BadContent) for a line without the three commas, RunTimeError(TypeMismatch) or
/// (Overflow) for a field that is not a number, each naming file, line and item.
std::vector<ObservationPoint> Read_Observation_Points(const FilePath& file);

}  // namespace sylvomex
