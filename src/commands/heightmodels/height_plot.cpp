// SPDX-License-Identifier: MIT
#include "commands/heightmodels/height_plot.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "overlays/colour_map.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "services/file_names.h"
#include "services/hourglass.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kReach = 2000;      // metres on either side of the solution
constexpr double kRangeStep = 10;    // grid step of the search for lowest and highest
constexpr double kCellStep = 5;      // grid step of the cells drawn
constexpr double kLeastHeight = 10;  // lower heights are ignored

// The models that the command can show, and the one chosen.
struct ShownModel {
  const char* legend;
  double (*height)(const Workspace& w, double X, double Y);
};
constexpr ShownModel kModels[] = {
    {"DTM, ", Get_Raster_Elevation},
    {"DSM, ",
     [](const Workspace& w, double X, double Y) {
       return Get_Raster_Elevation(w, X, Y) + Get_Raster_Chm_Elevation(w, X, Y);
     }},
    {"nDSM, ", Get_Raster_Chm_Elevation},
};
constexpr const ShownModel& kShown = kModels[0];

struct HeightRange {
  double lowest = 0, highest = 0;
};

template <class Visit>
void Walk_Square(const Point3D& centre, double step, Visit&& visit) {
  const int steps = static_cast<int>(kReach / step);
  WorkMeter meter(2.0 * steps + 1);
  for (int i = -steps; i <= steps; ++i) {
    meter.Step();
    for (int j = -steps; j <= steps; ++j) visit(centre.X + i * step, centre.Y + j * step);
  }
}

std::optional<HeightRange> Find_Range(const Workspace& w) {
  std::optional<HeightRange> range;
  Walk_Square(w.Solution3D, kRangeStep, [&](double X, double Y) {
    const double height = kShown.height(w, X, Y);
    if (!(height >= kLeastHeight)) return;
    if (!range) range = {height, height};
    range->lowest = std::min(range->lowest, height);
    range->highest = std::max(range->highest, height);
  });
  return range;
}

struct ColouredCell {
  Point3D at;
  Colour colour;
};

// A model with a single height gets the first colour.
Colour Colour_Of(double height, const HeightRange& range, const ColourMap& colours) {
  const double top = range.highest > range.lowest ? range.highest : range.lowest + 1;
  return colours(Colour_Row(std::clamp(height, range.lowest, top), range.lowest, top));
}

std::vector<ColouredCell> Coloured_Cells(const Workspace& w, const HeightRange& range,
                                         const ColourMap& colours) {
  std::vector<ColouredCell> cells;
  Walk_Square(w.Solution3D, kCellStep, [&](double X, double Y) {
    const double height = kShown.height(w, X, Y);
    if (height >= kLeastHeight) {
      cells.push_back({{X, Y, height}, Colour_Of(height, range, colours)});
    }
  });
  return cells;
}

// Draws the cells in the pane, at most one mark per pixel: far out many cells share a pixel.
void Mark_Cells(Workspace& w, int image, const std::vector<ColouredCell>& cells) {
  Picture& pane = w.Form1.Picture1(image);
  const int width = w.PaneWidth, height = w.PaneHeight;
  std::vector<bool> taken(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  pane.DrawWidth = 2;
  for (const ColouredCell& cell : cells) {
    const PanePosition at = Pane_Of_Point(w, image, cell.at);
    if (!(at.px >= 0 && at.py >= 0 && at.px < width && at.py < height)) continue;
    const auto pixel = static_cast<std::size_t>(at.py) * static_cast<std::size_t>(width) +
                       static_cast<std::size_t>(at.px);
    if (taken[pixel]) continue;
    taken[pixel] = true;
    Plot_Point(pane, at.px, at.py, cell.colour);
  }
  pane.DrawWidth = 1;
}

// At the pane's left edge, drawn over the marks and below the photo's number and scale.
void Print_Legend(Workspace& w, int image, const HeightRange& range) {
  constexpr double kMargin = 5;        // pane pixels
  constexpr double kBelowNumber = 45;  // the number is 20 points high
  Picture& pane = w.Form1.Picture1(image);
  pane.CurrentX = kMargin;
  pane.CurrentY = kBelowNumber;
  pane.ForeColor = kWhite;
  pane.font.size = 12;
  Print_Text(pane, kShown.legend + Format(range.lowest, "#.0 m") + " to " +
                       Format(range.highest, "#.0 m"));
}

void Plot_Model(Workspace& w, const ColourMap& colours) {
  const std::optional<HeightRange> range = Find_Range(w);
  if (!range) return;
  const std::vector<ColouredCell> cells = Coloured_Cells(w, *range, colours);
  WorkMeter meter(w.ImageCount);
  for (int k = 0; k < w.ImageCount; ++k) {
    meter.Step();
    Mark_Cells(w, k, cells);
    Print_Legend(w, k, *range);
  }
}

}  // namespace

void Test_DEM(Workspace& w) {
  if (!w.RasterDemLoaded) {
    w.screen->Message_Box("Read raster DEM first");
    return;
  }
  const ColourMap colours = Read_Colour_Map(w.Drives.Locate(kColourMapFile));
  const HourglassGuard hourglass(w);
  w.screen->Service_Events();
  if (w.SolutionValid) Plot_Model(w, colours);
}

}  // namespace sylvomex
