// SPDX-License-Identifier: MIT
#include "commands/heightmodels/tin_points.h"

#include <initializer_list>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/list_reader.h"
#include "platform/many_steps.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "services/chosen_file.h"
#include "state/camera_access.h"
#include "state/tin_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

std::string Line_Of(std::initializer_list<double> values) {
  std::string line;
  for (const double value : values) line += (line.empty() ? "" : ",") + Format(value, "0.00");
  return line + "\n";
}

std::vector<MapPoint> Read_Map_Points(const FilePath& file) {
  std::vector<MapPoint> points;
  for (ListReader list(file); !list.At_End();) {
    MapPoint& point = points.emplace_back();
    point.X = list.Read_Double();
    point.Y = list.Read_Double();
  }
  return points;
}

std::vector<Point3D> Read_Points(const FilePath& file) {
  std::vector<Point3D> points;
  for (ListReader list(file); !list.At_End();) {
    Point3D& point = points.emplace_back();
    point.X = list.Read_Double();
    point.Y = list.Read_Double();
    point.Z = list.Read_Double();
  }
  return points;
}

// One line per point: its own height, that of the raster and that of the triangles.
std::string Residual_Lines(const Workspace& w, const std::vector<Point3D>& points) {
  std::string lines;
  std::int32_t hint = 0;
  WorkMeter meter(static_cast<double>(points.size()));
  for (const Point3D& point : points) {
    meter.Step();
    const double triangles = Get_Tin_Elevation(w, point.X, point.Y, hint);
    const double raster = Get_Raster_Elevation(w, point.X, point.Y);
    if (triangles < 0) continue;
    lines += Line_Of({point.X, point.Y, point.Z, raster, triangles});
  }
  return lines;
}

}  // namespace

void Get_TIN_for_Points(Workspace& w) {
  const std::vector<MapPoint> points =
      Read_Map_Points(w.Drives.Locate("c:\\data\\vektorit\\1926.txt"));
  std::vector<double> heights(points.size());
  Tin_Elevations(w.TinDem, points, heights);
  std::string lines;
  ManySteps steps(static_cast<double>(points.size()));
  for (std::size_t i = 0; i < points.size(); ++i) {
    steps.Step();
    lines += Line_Of({points[i].X, points[i].Y, heights[i]});
  }
  Append_To_File(w.Drives.Locate("c:\\data\\vektorit\\1926_Heights.txt"), lines);
}

void Get_Raster_and_TIN_Residuals(Workspace& w) {
  constexpr const char* kResultName = "c:\\data\\dem_tin_res.txt";
  const auto file = Ask_File(w, {"File with X,Y,Z points", "HDR files (*.*)|*.*", 1, ""});
  if (!file) return;
  const std::vector<Point3D> points = Read_Points(*file);
  Write_Whole_File(w.Drives.Locate(kResultName), Residual_Lines(w, points));
  w.screen->Message_Box("Processed " + std::to_string(points.size()) + " points. Results in " +
                        kResultName);
}

}  // namespace sylvomex
