// SPDX-License-Identifier: MIT
#include "commands/evaluation/results_window.h"

#include <algorithm>
#include <cmath>

#include "commands/evaluation/error_graphs.h"
#include "commands/evaluation/graph_drawing.h"
#include "commands/evaluation/height_graphs.h"
#include "commands/overlays/field_dialogs.h"
#include "evaluation/tree_matching.h"
#include "matching/cluster_position.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kMargin = 3;
constexpr double kTextAbove = 96, kTextBelow = 20;
constexpr double kSmallestSide = 60;
constexpr int kPaneColumns = 3;

/// The height axis of 0 to 30 m needs a pane that is wider than high by the axis margin.
double Pane_Height(const Form6State& form) {
  const double by_height = (form.ClientHeight - kTextAbove - kTextBelow - 3 * kMargin) / 2;
  const double by_width = (form.ClientWidth - 4 * kMargin) / kPaneColumns - kAxisMargin;
  return std::max(kSmallestSide, std::floor(std::min(by_height, by_width)));
}

void Place_Panes(Form6State& form, double left) {
  const double height = Pane_Height(form);
  const double width = height + kAxisMargin;
  for (int k = 0; k <= 5; ++k) {
    Picture& pane = form.Picture1(k);
    const int row = k / kPaneColumns, column = k % kPaneColumns;
    pane.Left = left + column * (width + kMargin);
    pane.Top = kTextAbove + row * (height + kMargin);
    pane.Width = width;
    pane.Height = height;
  }
}

/// Centres the grid in the window; the texts are aligned with its left edge.
void Lay_Out(Form6State& form) {
  const double width = Pane_Height(form) + kAxisMargin;
  const double grid = kPaneColumns * width + (kPaneColumns - 1) * kMargin;
  const double left = std::max(kMargin, std::floor((form.ClientWidth - grid) / 2));
  Place_Panes(form, left);
  form.Show_Results.Left = left;
  for (Label* const label : {&form.Label1, &form.Label2, &form.Label3}) {
    label->Left = left + form.Show_Results.Width + 20;
  }
  form.Label4.Left = left;
  form.Label4.Top = form.Picture1(5).Top + form.Picture1(5).Height + kMargin;
}

void Clear_Graphs(Form6State& form) {
  form.GraphsShown = false;
  for (Picture& pane : form.Picture1) graph::Lay_Paper(pane);
}

void Tell_Matching(Workspace& w, const std::string& file) {
  const EvaluationState& e = w.Evaluation;
  w.Form6.Label1.Caption =
      Plain_Text(static_cast<std::int32_t>(e.ReferenceTree.size())) + " reference trees of " + file;
  w.Form6.Label2.Caption =
      Plain_Text(w.Matching.ClusterCount) + " clusters, matched nearest first within " +
      Plain_Text(e.MatchDistance) + " m in plan:  M " + Plain_Text(std::int32_t{e.MatchCount}) +
      ",  O " + Plain_Text(std::int32_t{e.OmittedCount}) + ",  C " +
      Plain_Text(std::int32_t{e.CommissionCount});
}

void Draw_Graph(Workspace& w, int graph) {
  Picture& pane = w.Form6.Picture1(graph);
  switch (graph) {
    case 0:
      return Draw_Z_Error_Graph(w, pane);
    case 1:
      return Draw_XY_Error_Graph(w, pane);
    case 2:
      return Draw_Z_Error_Plan(w, pane);
    case 3:
      return Draw_Class_Heights(w, pane);
    case 4:
      return Draw_Dem_Errors(w, pane);
    default:
      return Draw_Elevations(w, pane);
  }
}

/// All of them or, when it is cancelled, none.
void Draw_Graphs(Workspace& w) {
  constexpr int kGraphs = 6;
  WorkMeter meter(kGraphs);
  try {
    for (int graph = 0; graph < kGraphs; ++graph) {
      Draw_Graph(w, graph);
      meter.Step();
    }
  } catch (const Cancelled&) {
    Clear_Graphs(w.Form6);
    throw;
  }
  w.Form6.GraphsShown = true;
}

}  // namespace

void Show_Results_Window(Workspace& w) {
  if (w.Form6.Picture1(0).bitmap == nullptr) Clear_Graphs(w.Form6);
  w.Form6.Visible = true;
  Set_Focus(w.Form6, "");
}

void Load_Reference_Trees(Workspace& w) {
  const auto file = Ask_Field_Tree_File(w);
  if (!file) return;
  w.Evaluation = Evaluate_Matches(Read_Field_Trees(*file), Cluster_Positions(w.Matching),
                                  w.Matching.CaptureSnapshot.XYt);
  Clear_Graphs(w.Form6);
  Tell_Matching(w, file->name);
}

void Show_Results(Workspace& w) {
  Clear_Graphs(w.Form6);
  Draw_Graphs(w);
}

void Form6_Resize(Workspace& w) {
  const bool shown = w.Form6.GraphsShown;
  Lay_Out(w.Form6);
  Clear_Graphs(w.Form6);
  if (shown) Draw_Graphs(w);
}

}  // namespace sylvomex
