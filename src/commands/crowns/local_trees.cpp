// SPDX-License-Identifier: MIT
#include "commands/crowns/local_trees.h"

#include "state/cause.h"
#include "state/workspace.h"

#include "commands/crowns/crown_drawing.h"
#include "commands/panes/clearing.h"
#include "crowns/species.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr const char* kTreeFile = "C:\\data\\LK_trees.txt";
constexpr double kPlotIdOffset = 35;  // metres east of the plot's first tree
constexpr int kTreeWidth = 4;
constexpr double kPlotIdSize = 15, kTreeNumberSize = 10;  // points

void Show_Plot_Id(Workspace& w, const LocalTree& tree) {
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = Pane_Of_Point(w, k, {tree.X + kPlotIdOffset, tree.Y, tree.Z});
    Picture& pane = w.Form1.Picture1(k);
    pane.font.size = kPlotIdSize;
    pane.CurrentX = at.px;
    pane.CurrentY = at.py;
    Print_Text(pane, Plain_Text(tree.PlotId));
    Plot_Point(pane, at.px, at.py, kWhite);
  }
}

void Show_Tree(Workspace& w, const LocalTree& tree) {
  const Colour colour = Ring_Colour(tree.Species <= kSpeciesCount ? tree.Species : 0);
  for (int k = 0; k < w.ImageCount; ++k) {
    const PanePosition at = Pane_Of_Point(w, k, {tree.X, tree.Y, tree.Z});
    Picture& pane = w.Form1.Picture1(k);
    pane.DrawWidth = kTreeWidth;
    Plot_Point(pane, at.px, at.py, colour);
    pane.font.size = kTreeNumberSize;
    pane.DrawWidth = 1;
    Print_Text(pane, Plain_Text(tree.TreeNumber));
  }
}

void Clear_Fit(CrownState& crowns) {
  LocalTree& tree = crowns.LocalTreeRecord;
  tree.LidarMax = tree.LidarCrownWidth = tree.FitRmse = 0;
  tree.FitA = tree.FitP = tree.FitB = 0;
  crowns.LidarFitDone = false;
  crowns.MultiSizeDone = false;
}

}  // namespace

void Save_Local_Tree(Workspace& w) {
  if (!w.Crowns.LidarFitDone || !w.Crowns.MultiSizeDone) {
    Show_With_Cause(w, "You forgot either Multi-Size TM or crown modelling with lidar",
                    w.Crowns.LidarFitDone ? "no tree top is measured by \"Multi-Size TM\""
                                          : "no crown is modelled with lidar");
    return;
  }
  Append_To_File(w.Drives.Locate(kTreeFile), Local_Tree_Line(w.Crowns.LocalTreeRecord));
  Clear_Fit(w.Crowns);
  Show_Saved_Trees(w);
}

void Show_Saved_Trees(Workspace& w) {
  Clear_ima(w);
  std::int32_t plot = 0;
  for (const LocalTree& tree : Read_Local_Trees(w.Drives.Locate(kTreeFile))) {
    if (tree.PlotId != plot) Show_Plot_Id(w, tree);
    plot = tree.PlotId;
    Show_Tree(w, tree);
  }
}

}  // namespace sylvomex
