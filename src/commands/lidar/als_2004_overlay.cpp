// SPDX-License-Identifier: MIT
#include "commands/lidar/als_2004_overlay.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "commands/lidar/lidar_inputs.h"
#include "lidar/counted_file.h"
#include "lidar/echo_selection.h"
#include "lidar/tile_2004.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/many_steps.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr ValueScale kLehtomaaScale{-0.2, 1};  // metres above ground
constexpr double kLehtomaaRadius = 1;          // metres
constexpr float kHeightCorrection = 0.18F;     // metres, for the 2004 campaign
constexpr double kLehtomaaPlotScale = 40;
constexpr ValueScale kRovikScale{10, 25};
constexpr double kRovikReach = 20;  // metres, in X and in Y
constexpr int kDrawWidth = 2;

double Above_Ground(double height) { return std::max(height, 0.0); }

Colour Scaled_Colour(const ColourMap& colours, const ValueScale& scale, double height) {
  return colours(Colour_Row(height, scale.lowest, scale.highest));
}

void Plot_Low_Echo(Workspace& w, const Point3D& echo, Colour colour) {
  for (int k = 0; k < w.ImageCount; ++k) {
    Picture& pane = w.Form1.Picture1(k);
    pane.ForeColor = kYellow;
    pane.font.size = 8;
    pane.font.bold = false;
    pane.DrawWidth = kDrawWidth;
    const PanePosition at = Overlay_Of_Point(w, k, echo);
    Plot_Point(pane, at.px, at.py, colour);
  }
}

void Plot_Last_Echo(Workspace& w, const Lidar2004Record& record, const ColourMap& colours) {
  const double distance =
      std::sqrt((record.LastY - w.Solution3D.Y) * (record.LastY - w.Solution3D.Y) +
                (record.LastX - w.Solution3D.X) * (record.LastX - w.Solution3D.X));
  if (!(distance < kLehtomaaRadius)) return;
  const double Z = record.LastZ + kHeightCorrection;
  const double ground = Get_Raster_Elevation(w, record.LastX, record.LastY);
  const double height = kLehtomaaScale.Below_Top(Above_Ground(Z - ground));
  const Colour colour = Scaled_Colour(colours, kLehtomaaScale, height);
  if (height < kLehtomaaScale.highest) Plot_Low_Echo(w, {record.LastX, record.LastY, Z}, colour);
}

void Plot_Lehtomaa(Workspace& w) {
  const ColourMap colours = Read_Colours(w);
  const FilePath tile = Solution_Tile(w, Campaign::Als2004);
  Write_Whole_File(w.Drives.Locate("c:\\data\\2004_lidar.txt"), "");
  w.LidarPlotScale = kLehtomaaPlotScale;
  if (Is_Missing_Outside(w, tile)) return;
  Named_In(w, Path_Header_Name(Campaign::Als2004), [&] { Make_Missing_File(tile); });
  const auto records = Read_Tile_2004(tile);
  ManySteps steps(static_cast<double>(records.size()));
  for (const Lidar2004Record& record : records) {
    steps.Step();
    Plot_Last_Echo(w, record, colours);
  }
}

int Whole_Metres(const LidarPoint& point, double height) {
  try {
    return To_Int16(height);
  } catch (const RunTimeError& error) {
    throw error.At("height above ground at " + Plain_Text(point.X) + ", " + Plain_Text(point.Y));
  }
}

void Plot_Rovik_Point(Workspace& w, const LidarPoint& point, const ColourMap& colours) {
  const bool near = std::abs(point.X - w.Solution3D.X) < kRovikReach &&
                    std::abs(point.Y - w.Solution3D.Y) < kRovikReach;
  if (!near) return;
  const double Z = point.Z;
  const int above_ground = Whole_Metres(point, Z - Get_Raster_Elevation(w, point.X, point.Y));
  const double height = kRovikScale.Below_Top(Above_Ground(above_ground));
  const Colour colour = Scaled_Colour(colours, kRovikScale, height);
  if (!(height > kRovikScale.lowest)) return;
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = Overlay_Of_Point(w, k, {point.X, point.Y, Z});
    Plot_Point(w.Form1.Picture1(k), at.px, at.py, colour);
  }
}

void Plot_Rovik(Workspace& w) {
  const ColourMap colours = Read_Colours(w);
  const auto points = Read_Point_File(w.Drives.Locate("E:\\ROVIK\\Alue_b_8_Lidar.bin"));
  for (Picture& pane : w.Form1.Picture1) pane.DrawWidth = kDrawWidth;
  ManySteps steps(static_cast<double>(points.size()));
  for (const LidarPoint& point : points) {
    steps.Step();
    Plot_Rovik_Point(w, point, colours);
  }
}

}  // namespace

void Plot_Lidar_Of_Site(Workspace& w, std::string_view site) {
  if (!w.RasterDemLoaded) {
    w.screen->Message_Box("Read raster DEM first");
    return;
  }
  try {
    if (site == kSiteRovik) Plot_Rovik(w);
    if (site == kSiteLehtomaa) Plot_Lehtomaa(w);
  } catch (const RunTimeError& error) {
    Show_With_Cause(w, "An error has occurred!", error);
  }
}

void plot_als_bin_file(Workspace& w) { Plot_Lidar_Of_Site(w, kSiteLehtomaa); }

}  // namespace sylvomex
