// SPDX-License-Identifier: MIT
// Files of one point: their first line that is not blank. The RunTimeErrors of the list reader name
// file, line and item; items of later lines do not stand in for missing ones.
#pragma once

#include <cstdint>

#include "platform/drive_map.h"
#include "platform/point3d.h"
#include "solver/measurement_records.h"

namespace sylvomex {

struct NumberedPoint {
  std::int16_t number = 0;
  Point3D point;  // metres
};

/// Line: number, X, Y, Z.
NumberedPoint Read_Numbered_Point(const FilePath& file);

/// Line: plot number, X, Y, three numbers that are not used, height above ground, any text. GroundZ
/// stays 0.
PlotLocation Read_Plot_Location(const FilePath& file);

}  // namespace sylvomex
