// SPDX-License-Identifier: MIT
// A plot of 10 m about (1000, 2000) with four field trees and the five clusters of a search.
//
// Tree 1 (10 m high) is matched 0.3, 0.4 m away and 1 m too low, tree 2 (20 m) at its position and
// 2 m too low with cluster 4 beside it, tree 3 (30 m) 1 m away and 2 m too low; tree 4 is omitted.
// Clusters 4 and 5 have no tree. The field-measured ground is 150 m, 151 m at tree 4; the raster
// model has 150.5 m everywhere.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "overlays/field_tree_file.h"
#include "session/block_values.h"
#include "support/recording_screen.h"
#include "support/temporary_folder.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {

inline FieldTree Field_Tree(double X, double Y, double ground, double height, double dbh) {
  FieldTree tree;
  tree.MapX = X;
  tree.MapY = Y;
  tree.BaseZ = ground;
  tree.TopZ = ground + height;
  tree.TreeHeight = height;
  tree.Dbh = dbh;
  return tree;
}

inline std::string Field_Tree_Bytes(const std::vector<FieldTree>& trees) {
  FieldTreeFile file(static_cast<std::int32_t>(trees.size()), {});
  for (const FieldTree& tree : trees) file.Add(tree);
  return {reinterpret_cast<const char*>(file.Bytes().data()), file.Bytes().size()};
}

class EvaluatedPlot : public testing::Test {
 protected:
  EvaluatedPlot() {
    w.Matching.PlotCenter.PlotX = 1000;
    w.Matching.PlotCenter.PlotY = 2000;
    w.Matching.PlotCenter.PlotZ = 150;
    w.Matching.PlotRadius = 10;
    w.Matching.CaptureSnapshot.XYt = 1.5;
    Set_Clusters({{1000.3, 2000.4, 159},
                  {1005, 2000, 168},
                  {1000, 2006, 178},
                  {1005, 2001.25, 162},
                  {990, 1995, 156}});
    folder.Write("c/data/trees.bin", Field_Tree_Bytes({Field_Tree(1000, 2000, 150, 10, 200),
                                                       Field_Tree(1005, 2000, 150, 20, 200),
                                                       Field_Tree(1000, 2005, 150, 30, 100),
                                                       Field_Tree(993, 2000, 151, 9.375, 200)}));
    Load_Level_Model(150.5F);
  }

  void Set_Clusters(const std::vector<Point3D>& tops) {
    constexpr double kWeight = 2;
    w.Matching.ClusterCount = 0;
    for (const Point3D& top : tops) {
      const int i = ++w.Matching.ClusterCount;
      w.Matching.ClusterWeight(i) = kWeight;
      w.Matching.ClusterSum(i) = {kWeight * top.X, kWeight * top.Y, kWeight * top.Z};
    }
  }

  void Load_Level_Model(float height) {
    w.RasterDem.NCols = w.RasterDem.NRows = 41;
    w.RasterDem.OriginX = 980;
    w.RasterDem.OriginY = 1980;
    w.RasterDem.CellSize = 1;
    Dimension_Cells(w.RasterDem);
    for (std::size_t i = 0; i < 41 * 41; ++i) w.RasterDem.Cells[i] = height;
    w.RasterDemLoaded = true;
  }

  EventOutcome Handle(OperatorEvent::Kind kind, const std::string& form,
                      const std::string& control) {
    OperatorEvent event;
    event.kind = kind;
    event.form = form;
    event.control = control;
    return Handle_Event(w, event);
  }

  void Load_Trees(const std::string& file = "c:\\data\\trees.bin") {
    screen.files.push_back(file);
    Handle(OperatorEvent::Kind::Menu, "Form6", "Load_Reference_Trees");
  }

  void Show() { Handle(OperatorEvent::Kind::Press, "Form6", "Show_Results"); }

  std::string Value(const std::string& name) { return Block_Value(w, name); }

  const Picture& Pane(int k) { return w.Form6.Picture1(k); }

  /// The texts of a pane in the order in which they were printed.
  std::vector<std::string> Texts(int k) {
    std::vector<std::string> texts;
    for (const Mark& mark : Pane(k).marks) {
      if (mark.kind == Mark::Kind::Text) {
        texts.push_back(Pane(k).texts[static_cast<std::size_t>(mark.text)].text);
      }
    }
    return texts;
  }

  TemporaryFolder folder;
  RecordingScreen screen;
  std::unique_ptr<Workspace> block = std::make_unique<Workspace>(folder.Drives(), screen);
  Workspace& w = *block;
};

}  // namespace sylvomex
