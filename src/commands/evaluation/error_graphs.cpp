// SPDX-License-Identifier: MIT
#include "commands/evaluation/error_graphs.h"

#include <algorithm>
#include <cmath>

#include "commands/evaluation/graph_drawing.h"
#include "platform/number_text.h"
#include "platform/rounding.h"

namespace sylvomex {
namespace {

using namespace graph;

constexpr double kLineFirstHeight = 10, kLineLastHeight = 25;  // metres
constexpr int kDot = 5;

std::string Line_Text(const RegressionLine& line) {
  return "Zer = " + Format(line.a, "#.00") + (line.b < 0 ? "-" : "+") +
         Format(std::abs(line.b), "#.000") + " * h" + "  se(b): " + Format(line.se_b, "#.000") +
         " r2: " + Format(line.r2, "#.0000");
}

void Draw_Error_Axes(Picture& pane, const GraphScale& scale) {
  Draw_X_Axis(pane, scale, {{0, 30}, 5, "0", "tree height h, m"});
  Draw_Y_Axis(pane, scale, {{-15, 15}, 5, "0", "e, m"});
  Draw_Segment(pane, scale.At(0, 0), {pane.Width - kAxisMargin, scale.At(0, 0).py}, kBlack);
  Print_Legend(pane, Low_Legend(pane, 2), kRed, kDot, "matched tree");
  Print_Legend(pane, Low_Legend(pane, 1), kBlue, kDot, "matched tree with a commission beside it");
  Print_Legend(pane, Low_Legend(pane, 0), kGreen, kDot, "least-squares line");
}

void Draw_Errors(Picture& pane, const GraphScale& scale,
                 std::span<const ReferenceTreeRecord> matched) {
  for (const ReferenceTreeRecord& tree : matched) {
    Put_Dot(pane, scale.At(tree.TreeHeight, Z_Error(tree)), tree.OtherCluster != 0 ? kBlue : kRed,
            kDot);
  }
}

/// The plot's border, but for what would run through texts.
void Draw_Circle(Picture& pane, const GraphScale& scale, double radius) {
  constexpr int kSegments = 72;
  constexpr double kFullTurn = 6.283185307179586;
  GraphPosition from = scale.At(radius, 0);
  for (int i = 1; i <= kSegments; ++i) {
    const double angle = i * kFullTurn / kSegments;
    const GraphPosition to = scale.At(radius * std::cos(angle), radius * std::sin(angle));
    if (!Is_Among_Texts(pane, from) && !Is_Among_Texts(pane, to)) {
      Draw_Segment(pane, from, to, kGrey);
    }
    from = to;
  }
}

/// The frame of a plan, with axes in metres from the plot's centre.
void Begin_Plan(const Workspace& w, Picture& pane, const char* title) {
  const double radius = w.Matching.PlotRadius;
  const GraphScale scale = Plan_Scale(Size_Of(pane), 0, 0, radius);
  const double step = Tick_Step(2 * radius, 8);
  Begin_Graph(pane, title);
  Draw_Circle(pane, scale, radius);
  Draw_X_Axis(pane, scale, {{-radius, radius}, step, "0", "m east"});
  Draw_Y_Axis(pane, scale, {{-radius, radius}, step, "0", "m north", AxisName::AtItsFoot});
}

GraphScale Plan_Of_Plot(const Workspace& w, const Picture& pane) {
  const PlotCenterRecord& plot = w.Matching.PlotCenter;
  return Plan_Scale(Size_Of(pane), plot.PlotX, plot.PlotY, w.Matching.PlotRadius);
}

/// Pen width for a Z error: its magnitude at the plan's scale, from 2 pixels to the pane's side.
int Error_Width(const Picture& pane, const GraphScale& scale, double error) {
  return To_Int32(std::clamp(std::abs(error) * scale.pixels_x, 2.0, pane.Height));
}

}  // namespace

void Draw_Z_Error_Graph(Workspace& w, Picture& pane) {
  const auto matched = Matched_Trees(w.Evaluation);
  const GraphScale scale = Error_Scale(Size_Of(pane));
  Begin_Graph(pane, "Z-errors of matched trees");
  Draw_Error_Axes(pane, scale);
  Draw_Errors(pane, scale, matched);
  const RegressionLine line = Fit_Z_Errors(
      matched, [&w](std::string_view text) { w.screen->Message_Box(text, Buttons::Ok, {}); });
  Draw_Segment(pane, scale.At(kLineFirstHeight, line.a + line.b * kLineFirstHeight),
               scale.At(kLineLastHeight, line.a + line.b * kLineLastHeight), kGreen, 2);
  const double share = Matched_Volume_Share(matched, Omitted_Trees(w.Evaluation));
  Print_Result(pane, 0, "Matched Volume: " + Format(share, "#.0 %"));
  Print_Result(pane, 1, Line_Text(line));
}

void Draw_XY_Error_Graph(const Workspace& w, Picture& pane) {
  const auto matched = Matched_Trees(w.Evaluation);
  const GraphScale scale = Plan_Of_Plot(w, pane);
  Begin_Plan(w, pane, "XY-error vectors of matched trees");
  for (const ReferenceTreeRecord& tree : matched) {
    const GraphPosition top = scale.At(tree.TreeX, tree.TreeY);
    const GraphPosition cluster = scale.At(tree.ClusterX, tree.ClusterY);
    Put_Dot(pane, top, kBlack, 7);
    Draw_Segment(pane, top, cluster, kBlack);
    Put_Dot(pane, top, kBlue, 5);
    Put_Dot(pane, cluster, kRed, 3);
  }
  Print_Result(pane, 0, "XY-RMSE: " + Format(XY_Rmse(matched), "#.00 m"));
  Print_Legend(pane, Right_Legend(pane, 0), kBlue, kDot, "tree");
  Print_Legend(pane, Right_Legend(pane, 1), kRed, kDot, "cluster");
}

void Draw_Z_Error_Plan(const Workspace& w, Picture& pane) {
  const auto matched = Matched_Trees(w.Evaluation);
  const GraphScale scale = Plan_Of_Plot(w, pane);
  Begin_Plan(w, pane, "Z-errors of matched trees in XY-plane");
  for (const ReferenceTreeRecord& tree : matched) {
    const double error = Z_Error(tree);
    Put_Dot(pane, scale.At(tree.TreeX, tree.TreeY), error < 0 ? kBlue : kRed,
            Error_Width(pane, scale, error));
  }
  Print_Result(pane, 0, "Z-RMSE: " + Format(Z_Rmse(matched), "#.00 m"));
  Print_Legend(pane, Right_Legend(pane, 0), kRed, kDot, "e > 0");
  Print_Legend(pane, Right_Legend(pane, 1), kBlue, kDot, "e < 0");
  Print_Legend(pane, Right_Legend(pane, 3), kGrey, Error_Width(pane, scale, 1), "1 m");
}

}  // namespace sylvomex
