// SPDX-License-Identifier: MIT
#include "commands/lidar/pulse_overlays.h"

#include <vector>

#include "commands/lidar/lidar_inputs.h"
#include "lidar/echo_selection.h"
#include "panes/overlay_points.h"
#include "platform/files.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kDrawWidth = 3;

void Plot_Echoes(Workspace& w, const std::vector<SelectedEcho>& echoes, const ValueScale& scale,
                 const ColourMap& colours) {
  std::vector<OverlayPoint> points;
  points.reserve(echoes.size());
  for (const SelectedEcho& echo : echoes) {
    const int row = Colour_Row(echo.value, scale.lowest, scale.highest);
    points.push_back({echo.at, colours(row)});
  }
  Plot_Overlay_Points(w, points);
}

// select(echoes) collects the echoes to draw; those collected before a failure are drawn too.
template <class Select>
void Plot_Intensities(Workspace& w, Campaign campaign, const ValueScale& scale, Select&& select) {
  const ColourMap colours = Read_Colours(w);
  const FilePath tile = Solution_Tile(w, campaign);
  if (Read_Tile(w, campaign, tile) == 0) return;
  for (Picture& pane : w.Form1.Picture1) pane.DrawWidth = kDrawWidth;
  Write_Whole_File(w.Drives.Locate("c:\\data\\lidtest.txt"), "");
  std::vector<SelectedEcho> echoes;
  try {
    select(echoes);
  } catch (const RunTimeError& error) {
    Plot_Echoes(w, echoes, scale, colours);
    throw RunTimeError(error.Kind(), tile.name + ", " + std::string(error.About()), tile.native);
  }
  Plot_Echoes(w, echoes, scale, colours);
}

}  // namespace

void Plot_ALS_2007(Workspace& w) {
  const auto ground = [&w](double X, double Y) { return Get_Raster_Elevation(w, X, Y); };
  Plot_Intensities(w, Campaign::Als2007, kScale2007, [&](std::vector<SelectedEcho>& echoes) {
    Select_Echoes_2007(w.LidarPulses, w.Solution3D.X, w.Solution3D.Y, ground, echoes);
  });
}

void Print_ALS_near_solution(Workspace& w) {
  Plot_Intensities(w, Campaign::Als2006, kScale2006, [&](std::vector<SelectedEcho>& echoes) {
    Select_Echoes_2006(w.LidarPulses, w.Solution3D.X, w.Solution3D.Y, echoes);
  });
}

void Plot_Lidar_pdf(Workspace& w) {
  if (Read_Tile(w, Campaign::Als2006, Solution_Tile(w, Campaign::Als2006)) == 0) return;
  // A portrait A4 page without margins, in twips (1/1440 inch), replaces the printer's page.
  constexpr double kPageHeight = 16838;
  constexpr double kScaleHeight = kPageHeight;
  w.PlotPageScale = kScaleHeight / kPageHeight * 0.55;
}

}  // namespace sylvomex
