// SPDX-License-Identifier: MIT
// Agreement of a site's height models with each other and with the true ground.
#pragma once

#include <string>
#include <vector>

#include "demo/table/sample_statistics.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

/// One point of a comparison of height models.
struct ComparedPoint {
  double X = 0, Y = 0, Z = 0;  // true
  double raster = 0, tin = 0;  // elevations of the models
};

/// One line per point, "X Y Z raster TIN", as written by the residual command. RunTimeErrors of the
/// list reader.
std::vector<ComparedPoint> Read_Compared_Points(const FilePath& file);

struct ResidualTable {
  SampleStatistics tin_less_raster, tin_less_truth, raster_less_truth;
};
ResidualTable Compare_Models(const std::vector<ComparedPoint>& points);

/// n, mean, RMS and largest absolute difference, aligned.
std::string Table_Text(const ResidualTable& table);

}  // namespace sylvomex::demo
