// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "platform/drive_map.h"

namespace sylvomex {

struct ObservationPoint {
  std::int16_t number = 0;     // measurement number
  double X = 0, Y = 0, Z = 0;  // metres
};

/// The points of an observation file, from the first four of the comma-separated fields of
/// each line. Only the first 100 characters of a line are looked at. Lines with X of 1.0 or
/// less and blank lines are passed over.
///
/// RunTimeError(BadContent) for a line with fewer than four fields, RunTimeError(TypeMismatch)
/// or (Overflow) for a field that is no number, each naming the file and the line.
std::vector<ObservationPoint> Read_Observation_Points(const FilePath& file);

}  // namespace sylvomex
