// SPDX-License-Identifier: MIT
#include "commands/crowns/image_lidar_allometry.h"

#include <cmath>

#include "commands/crowns/crown_drawing.h"
#include "commands/crowns/crown_exchange.h"
#include "commands/crowns/crown_inputs.h"
#include "commands/lidar/lidar_inputs.h"
#include "commands/panes/clearing.h"
#include "crowns/crown_chain.h"
#include "panes/overlay_points.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "services/status_line.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

constexpr double kAreaHalfWidth = 25;     // metres, in X and in Y
constexpr double kOverlayMaxHeight = 25;  // metres
constexpr double kBelowOverlayMax = 24.98;
constexpr int kPreviewWidth = 3;
constexpr double kLeastEchoX = 1.0;
constexpr double kTileArea = 10000;  // square metres
constexpr double kPoorRmse = 0.5;    // metres, of a crown drawn in white
// Shares of the height between which the first crown's rings and all crowns' lower rings lie.
constexpr double kUpperEnd = 0.4, kLowerEnd = 0.5;
constexpr double kUpperStep = 1, kLowerStep = 1.5;  // metres

bool In_Area(const Point3D& centre, double X, double Y) {
  return std::fabs(X - centre.X) < kAreaHalfWidth && std::fabs(Y - centre.Y) < kAreaHalfWidth;
}

void Tell_Density(Workspace& w) {
  const double count = w.LidarPulses.Count();
  w.screen->Message_Box("Lidar density " + Plain_Text(count / kTileArea) +
                        " pulses per m2 = " + Plain_Text(count * kPulseBytes / 1000) + " Kbytes");
}

void Add_Preview_Point(const Workspace& w, const LidarEcho& echo, const ColourMap& colours,
                       std::vector<OverlayPoint>& points) {
  if (!(echo.X > kLeastEchoX)) return;
  double height = echo.Z - Get_Raster_Elevation(w, echo.X, echo.Y);
  if (!(height > kSeedMinHeight)) return;
  if (height > kOverlayMaxHeight) height = kBelowOverlayMax;
  const int row = Colour_Row(height, kSeedMinHeight, kOverlayMaxHeight);
  points.push_back({{echo.X, echo.Y, echo.Z}, colours(row)});
}

// Every echo of the pulses whose first slot lies in the area, by height.
void Preview_Echoes(Workspace& w, const ColourMap& colours) {
  for (Picture& pane : w.Form1.Picture1) pane.DrawWidth = kPreviewWidth;
  std::vector<OverlayPoint> points;
  WorkMeter meter(w.LidarPulses.Count());
  for (std::int32_t i = 1; i <= w.LidarPulses.Count(); ++i) {
    meter.Step();
    const auto entry = static_cast<std::size_t>(i - 1);
    if (!In_Area(w.Solution3D, w.LidarPulses.X(1)[entry], w.LidarPulses.Y(1)[entry])) continue;
    const LidarPulse pulse = w.LidarPulses(i);
    for (const LidarEcho& echo : pulse.Echo) Add_Preview_Point(w, echo, colours, points);
  }
  Plot_Overlay_Points(w, points);
}

void Mark_Member(Workspace& w, const LidarPoint& point, Colour colour) {
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = Overlay_Of_Point(w, k, {point.X, point.Y, point.Z});
    Plot_Point(w.Form1.Picture1(k), at.px, at.py, colour);
  }
  w.screen->Service_Events();
  Look_At_Work();
}

void Draw_First_Crown(Workspace& w, const FittedTree& tree) {
  const CrownRecord crown = w.Crowns.CrownTrees(tree.number);
  for (const double depth : Ring_Depths(0, kUpperEnd * crown.Height, kUpperStep)) {
    Draw_Ring(w, crown, depth, Depth_Colour(depth), 1);
  }
}

void Fit_All_Crowns(Workspace& w, CrownEchoes& echoes) {
  const CrownSolver solve = Solver_With_Files(w.Drives);
  const FittedTree first = Fit_First_Crown(w, echoes, solve);
  Draw_First_Crown(w, first);
  Draw_Crown(w, echoes, first);
  WorkMeter meter(kMoreCrownPasses);
  for (int pass = 0; pass < kMoreCrownPasses; ++pass) {
    meter.Step();
    const std::optional<FittedTree> tree = Fit_Next_Crown(w, echoes, kSeedMinHeight, solve);
    if (tree) Draw_Crown(w, echoes, *tree);
  }
}

}  // namespace

void Draw_Crown(Workspace& w, CrownEchoes& echoes, const FittedTree& tree) {
  const CrownRecord crown = w.Crowns.CrownTrees(tree.number);
  const Colour colour = tree.rmse > kPoorRmse ? kWhite : Echo_Colour(tree.species);
  for (const CrownEcho& echo : Take_Late_Echoes(echoes, crown)) {
    ++w.Crowns.CrownTrees(tree.number).PointCount;
    Mark_Member(w, echoes.At(echo.rank).point, colour);
  }
  const double height = crown.Height;
  for (const double depth : Ring_Depths(kUpperEnd * height, kLowerEnd * height, kLowerStep)) {
    Draw_Ring(w, crown, depth, Ring_Colour(tree.species), 1);
  }
}

void Image_Lidar_Allometry_Algorithm(Workspace& w) {
  w.LidarPlotScale = 0;
  const ColourMap colours = Read_Colours(w);
  if (Read_Tile(w, Campaign::Als2006, Solution_Tile(w, Campaign::Als2006)) == 0) return;
  Tell_Density(w);
  Preview_Echoes(w, colours);
  if (w.screen->Message_Box("Start crown fiiting", Buttons::YesNo) == Answer::No) return;
  Clear_ima(w);
  Show_Status(w, "Reading lidar data for the area...");
  const Point3D centre = w.Solution3D;
  CrownEchoes echoes = Sort_Echoes(
      w, Gather_Echoes(w, [&centre](double X, double Y) { return In_Area(centre, X, Y); }));
  w.Crowns.CrownTrees = {};
  w.Crowns.TreeCount = 0;
  Show_Status(w, "Fitting crowns...");
  Fit_All_Crowns(w, echoes);
}

}  // namespace sylvomex
