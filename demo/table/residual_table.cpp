// SPDX-License-Identifier: MIT
#include "demo/table/residual_table.h"

#include "demo/write/exact_text.h"
#include "platform/list_reader.h"

namespace sylvomex::demo {
namespace {

std::string Right(const std::string& text) {
  constexpr std::size_t width = 9;
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

std::string Line(const char* name, const SampleStatistics& differences) {
  return name + Right(std::to_string(differences.n)) + Right(Fixed_Decimals(differences.mean, 3)) +
         Right(Fixed_Decimals(differences.rms, 3)) +
         Right(Fixed_Decimals(differences.largest_absolute, 3)) + "\n";
}

}  // namespace

std::vector<ComparedPoint> Read_Compared_Points(const FilePath& file) {
  ListReader list(file);
  std::vector<ComparedPoint> points;
  while (!list.At_End()) {
    ComparedPoint point;
    for (double* value : {&point.X, &point.Y, &point.Z, &point.raster, &point.tin}) {
      *value = list.Read_Double();
    }
    points.push_back(point);
  }
  return points;
}

ResidualTable Compare_Models(const std::vector<ComparedPoint>& points) {
  std::vector<double> tin_less_raster, tin_less_truth, raster_less_truth;
  for (const ComparedPoint& point : points) {
    tin_less_raster.push_back(point.tin - point.raster);
    tin_less_truth.push_back(point.tin - point.Z);
    raster_less_truth.push_back(point.raster - point.Z);
  }
  return {Statistics_Of(std::move(tin_less_raster)), Statistics_Of(std::move(tin_less_truth)),
          Statistics_Of(std::move(raster_less_truth))};
}

std::string Table_Text(const ResidualTable& table) {
  return "differences, m              n     mean      RMS  largest\n" +
         Line("TIN less raster      ", table.tin_less_raster) +
         Line("TIN less truth       ", table.tin_less_truth) +
         Line("raster less truth    ", table.raster_less_truth);
}

}  // namespace sylvomex::demo
