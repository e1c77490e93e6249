// SPDX-License-Identifier: MIT
// The lines of an observation file with all their fields, for looking at them: a line that another
// program has spoilt is kept as unreadable instead of ending the reading.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/point3d.h"

namespace sylvomex {

struct MeasuredRay {
  std::int32_t image_id = 0;
  double col = 0;  // full-image pixels, row from the bottom
  double row = 0;
};

struct MeasuredLine {
  bool readable = false;
  int number = 0;
  Point3D at;          // metres
  double dem_z = 0;    // metres
  double rmse_um = 0;  // micrometres
  int species = 0;
  int free_integer = 0;
  std::string comment;  // without the blanks that fill it
  std::vector<MeasuredRay> rays;
  std::string text;  // the line itself
};

/// The fields number, X, Y, Z, terrain height, RMSE, species, free integer, images, comment of 30
/// characters (which may hold commas), then the ids, columns and rows of the images.
MeasuredLine Measured_Line_Of(std::string_view line);

/// All lines that are not blank. A last line without its end counts.
std::vector<MeasuredLine> Measured_Lines_Of(std::string_view content);

}  // namespace sylvomex
