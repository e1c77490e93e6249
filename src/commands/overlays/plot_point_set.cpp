// SPDX-License-Identifier: MIT
#include "commands/overlays/plot_point_set.h"

#include <algorithm>
#include <string>

#include "overlays/colour_map.h"
#include "overlays/observation_points.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/many_steps.h"
#include "platform/number_text.h"
#include "services/file_names.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

// Heights above ground at the two ends of the colour map, metres: from the ground to the tops of
// tall trees.
constexpr double kLowestHeight = 0;
constexpr double kHighestHeight = 25;

// A yellow dot with a white centre; the measurement number next to it has the colour of the height
// above ground.
void Draw_Measured_Point(Workspace& w, int image, const ObservationPoint& point, Colour colour) {
  const PanePosition at = Overlay_Of_Point(w, image, point.at);
  Picture& pane = w.Form1.Picture1(image);
  pane.DrawWidth = 3;
  Plot_Point(pane, at.px, at.py, kYellow);
  pane.DrawWidth = 1;
  Plot_Point(pane, at.px, at.py, kWhite);
  pane.ForeColor = colour;
  pane.font = {"Arial", 8, false};
  Print_Text(pane, Plain_Text(point.number));
}

std::string Listing_Line(const ObservationPoint& point, double ground) {
  return Format(point.at.X, "#.00") + "," + Format(point.at.Y, "#.00") + "," +
         Format(point.at.Z, "#.00") + "," + Format(ground, "#.00") + "\n";
}

}  // namespace

void Plot_Point_Set(Workspace& w) {
  const ColourMap colours = Read_Colour_Map(w.Drives.Locate(kColourMapFile));
  const auto points = Read_Observation_Points(w.Drives.Locate(w.ObservationFileName));
  std::string listing;
  ManySteps steps(static_cast<double>(points.size()));
  for (const ObservationPoint& point : points) {
    steps.Step();
    const double ground = Get_Raster_Elevation(w, point.at.X, point.at.Y);
    const double height = std::clamp(point.at.Z - ground, kLowestHeight, kHighestHeight);
    const Colour colour = colours(Colour_Row(height, kLowestHeight, kHighestHeight));
    for (int k = 0; k < w.ImageCount; ++k) Draw_Measured_Point(w, k, point, colour);
    listing += Listing_Line(point, ground);
  }
  Write_Whole_File(w.Drives.Locate("c:\\apu\\quvex.txt"), listing);
}

}  // namespace sylvomex
