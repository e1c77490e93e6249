// SPDX-License-Identifier: MIT
#include "commands/evaluation/height_graphs.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "commands/evaluation/graph_drawing.h"
#include "evaluation/match_statistics.h"
#include "platform/number_text.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

using namespace graph;

constexpr Colour kMatchedColour{25, 155, 25};
constexpr int kDot = 5;
constexpr double kResultRoom = 70;  // pixels left free at the top
constexpr double kLabelRoom = 44;   // pixels left free right of the left axis

struct ClassHeights {
  Colour colour;
  const char* name = "";
  std::vector<double> heights;  // metres
};

std::vector<double> Heights_Of(std::span<const ReferenceTreeRecord> trees) {
  std::vector<double> heights;
  for (const ReferenceTreeRecord& tree : trees) heights.push_back(tree.TreeHeight);
  return heights;
}

std::vector<double> Commission_Heights(const Workspace& w) {
  std::vector<double> heights;
  for (const Point3D& top : w.Evaluation.CommissionTops) {
    const double ground =
        w.RasterDemLoaded ? Get_Raster_Elevation(w, top.X, top.Y) : w.Matching.PlotCenter.PlotZ;
    heights.push_back(top.Z - ground);
  }
  return heights;
}

constexpr int kColumns = 30;  // one metre each

int Column_Of(double height) {
  return static_cast<int>(std::clamp(std::floor(height), 0.0, kColumns - 1.0));
}

int Fullest_Column(std::span<const ClassHeights> classes) {
  std::array<int, kColumns> counts{};
  for (const ClassHeights& c : classes) {
    for (const double height : c.heights) ++counts[static_cast<std::size_t>(Column_Of(height))];
  }
  return std::ranges::max(counts);
}

/// Stacked squares, one per tree, in the colours of the classes.
void Stack_Bricks(Picture& pane, const GraphScale& scale, std::span<const ClassHeights> classes) {
  std::array<int, kColumns> stacked{};
  const int side = std::max(1, static_cast<int>(std::min(scale.pixels_x, scale.pixels_y)) - 1);
  for (const ClassHeights& c : classes) {
    for (const double height : c.heights) {
      const int column = Column_Of(height);
      const int below = stacked[static_cast<std::size_t>(column)]++;
      Put_Dot(pane, scale.At(column + 0.5, below + 0.5), c.colour, side);
    }
  }
}

/// One value per reference tree.
template <class Value>
std::vector<double> Of_Trees(const Workspace& w, Value&& value) {
  std::vector<double> values;
  for (const ReferenceTreeRecord& tree : w.Evaluation.ReferenceTree) {
    values.push_back(value(tree));
  }
  return values;
}

double Raster_Ground(const Workspace& w, const ReferenceTreeRecord& tree) {
  return Get_Raster_Elevation(w, tree.TreeX, tree.TreeY);
}

double Dem_Error(const Workspace& w, const ReferenceTreeRecord& tree) {
  return Raster_Ground(w, tree) - tree.BaseZ;
}

void Note_Missing_Model(const Workspace& w, Picture& pane) {
  constexpr GraphPosition kPlace{100, 90};
  if (!w.RasterDemLoaded) Print_At(pane, kPlace, "no raster height model is loaded");
}

}  // namespace

void Draw_Class_Heights(const Workspace& w, Picture& pane) {
  const std::array classes{
      ClassHeights{kMatchedColour, "M, matched tree", Heights_Of(Matched_Trees(w.Evaluation))},
      ClassHeights{kBlue, "O, omitted tree", Heights_Of(Omitted_Trees(w.Evaluation))},
      ClassHeights{kBlack, "C, cluster without a tree", Commission_Heights(w)}};
  const int most = std::max(1, Fullest_Column(classes));
  const double room = pane.Height - kAxisMargin - kResultRoom;
  const double column = Height_Count_Scale(Size_Of(pane), 1).pixels_x;
  const GraphScale scale = Height_Count_Scale(Size_Of(pane), std::min(column, room / most));
  Begin_Graph(pane, "Tree heights / cluster-heights in M/O/C -classes");
  Draw_X_Axis(pane, scale, {{0, 30}, 5, "0", ""});
  const double top = std::max(1.0, room / scale.pixels_y);
  Draw_Y_Axis(pane, scale,
              {{0, top},
               std::max(1.0, Tick_Step(top, 6)),
               "0",
               "number of trees and clusters over their height, m"});
  Stack_Bricks(pane, scale, classes);
  int line = 0;
  for (const ClassHeights& c : classes) {
    Print_Legend(
        pane, High_Legend(line++), c.colour, kDot,
        std::string(c.name) + ": " + Plain_Text(static_cast<std::int32_t>(c.heights.size())));
  }
}

void Draw_Dem_Errors(const Workspace& w, Picture& pane) {
  const auto errors =
      Of_Trees(w, [&](const ReferenceTreeRecord& tree) { return Dem_Error(w, tree); });
  const MeanAndRmse summary = Mean_And_Rmse(errors);
  std::vector<double> extent = errors;
  extent.push_back(0);
  const Interval range = Rounded_Out(extent, 6);
  const auto last = static_cast<double>(errors.size());
  const GraphScale scale =
      Value_Scale(Size_Of(pane), {0, last + 1}, range, kLabelRoom, kResultRoom);
  Begin_Graph(pane, "DEM-errors");
  Draw_X_Axis(pane, scale, {{1, last}, std::max(1.0, Tick_Step(last, 8)), "0", "reference tree"});
  Draw_Y_Axis(pane, scale, {range, Tick_Step(range.high - range.low, 8), "0.00", "m"});
  Draw_Segment(pane, {kAxisMargin, scale.At(0, 0).py},
               {pane.Width - kAxisMargin, scale.At(0, 0).py}, kGrey);
  double number = 0;
  for (const double error : errors) Put_Dot(pane, scale.At(++number, error), kRed, kDot);
  Print_Result(pane, 0,
               " RMSE: " + Format(summary.rmse, "#.00") + " Mean: " + Format(summary.mean, "#.00"));
  Note_Missing_Model(w, pane);
}

void Draw_Elevations(const Workspace& w, Picture& pane) {
  const auto measured = Of_Trees(w, [](const ReferenceTreeRecord& tree) { return tree.BaseZ; });
  const auto raster =
      Of_Trees(w, [&](const ReferenceTreeRecord& tree) { return Raster_Ground(w, tree); });
  std::vector<double> all = measured;
  all.insert(all.end(), raster.begin(), raster.end());
  const Interval range = Rounded_Out(all, 6);
  const double step = Tick_Step(range.high - range.low, 6);
  const GraphScale scale = Value_Scale(Size_Of(pane), range, range, kLabelRoom, kResultRoom);
  Begin_Graph(pane, "Elevation by tacheometer");
  Draw_X_Axis(pane, scale, {range, step, "#.0", "tacheometer, m"});
  Draw_Y_Axis(pane, scale, {range, step, "#.0", "raster model, m"});
  Draw_Segment(pane, scale.At(range.low, range.low), scale.At(range.high, range.high), kGrey);
  for (std::size_t i = 0; i < measured.size(); ++i) {
    Put_Dot(pane, scale.At(measured[i], raster[i]), raster[i] < measured[i] ? kBlue : kRed, kDot);
  }
  Print_Legend(pane, Top_Legend(0), kRed, kDot, "model above the measured ground");
  Print_Legend(pane, Top_Legend(1), kBlue, kDot, "model below it");
  Note_Missing_Model(w, pane);
}

}  // namespace sylvomex
