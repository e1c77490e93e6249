// SPDX-License-Identifier: MIT
// Accuracy of a measuring session: its transcript compared with the truth of the site.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/list_reader.h"
#include "solver/space_intersection.h"

namespace sylvomex::demo {

/// One tree of a transcript.
struct MeasuredTop {
  int tree = 0;
  Point3D point;  // metres
  double rmse_um = 0;
};

/// True tops by tree id, from truth.csv (X, Y and top_Z found by the column names).
/// RunTimeError naming the file for a missing column or a bad number.
std::map<int, Point3D> Read_True_Tops(const FilePath& truth);

/// Tops from a transcript: a line "say tree <id>" starts a tree, "Solution3D = X Y Z" and
/// "Label10 = RMSE: <value> um ..." belong to the last tree started. Trees without both are left
/// out.
std::vector<MeasuredTop> Read_Measured_Tops(const std::string& transcript);

struct AxisErrors {
  double mean = 0;  // metres, measured minus true
  double rms = 0;
};

struct AccuracyTable {
  std::size_t n = 0;
  AxisErrors x, y, z;
  double median_rmse_um = 0;
};

/// std::nullopt when no measured tree is in the truth.
std::optional<AccuracyTable> Compare_With_Truth(const std::vector<MeasuredTop>& measured,
                                                const std::map<int, Point3D>& truth);

/// The table as aligned text, including seconds when given.
std::string Table_Text(const AccuracyTable& table, std::optional<double> seconds);

}  // namespace sylvomex::demo
