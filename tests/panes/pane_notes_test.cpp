// SPDX-License-Identifier: MIT
#include "panes/pane_notes.h"

#include <gtest/gtest.h>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

class PaneNotes : public testing::Test {
 protected:
  PaneNotes() {
    block.Add_Camera(0, 0, 1000);
    block.w.PaneWidth = block.w.PaneHeight = 2000;
  }

  Workspace& w() { return block.w; }

  void Add_Top(double X, double Y, double Z, double weight, int members) {
    MatchingState& m = w().Matching;
    const int i = ++m.ClusterCount;
    m.ClusterWeight(i) = weight;
    m.ClusterSum(i) = {X * weight, Y * weight, Z * weight};
    m.ClusterInfo(i).Members = members;
  }

  SyntheticBlock block;
};

TEST(ZoomText, IsARatioOfWholeNumbers) {
  EXPECT_EQ(Zoom_Text(1), "1:1");
  EXPECT_EQ(Zoom_Text(4), "4:1");
  EXPECT_EQ(Zoom_Text(1.0 / 3), "1:3");
  EXPECT_EQ(Zoom_Text(0.1), "1:10");
}

TEST_F(PaneNotes, NameTheImageAndItsZoom) {
  w().PaneViews(0).ZoomX = w().PaneViews(0).ZoomY = 2;
  const PaneNote note = Note_Of_Pane(w(), 0);
  EXPECT_EQ(note.image_id, 100);
  EXPECT_EQ(note.zoom, "2:1");
  EXPECT_EQ(note.mode, "");
  EXPECT_FALSE(note.ticked);
  EXPECT_FALSE(note.clicked_last);
}

// X 10 at 1000 m is film 0.001, column 1000 + 100; Y 20 is row 1200, pane 1999 - 1200.
TEST_F(PaneNotes, TellTheObservationInTheBoxes) {
  block.Observe(0, {10, 20, 0});
  w().CurrentImage = 0;
  const PaneNote note = Note_Of_Pane(w(), 0);
  ASSERT_TRUE(note.observation);
  EXPECT_NEAR(note.observation->pixel.col, 1100, 1e-6);
  EXPECT_NEAR(note.observation->pixel.row, 1200, 1e-6);
  EXPECT_NEAR(note.observation->at.px, 1100, 1e-6);
  EXPECT_NEAR(note.observation->at.py, 799, 1e-6);
  EXPECT_TRUE(note.ticked);
  EXPECT_TRUE(note.clicked_last);
}

TEST_F(PaneNotes, BoxesThatHoldNoNumberAreNoObservation) {
  w().Form1.Text1(0).Text = "0.01";
  EXPECT_FALSE(Note_Of_Pane(w(), 0).observation);
  w().Form1.Text1(1).Text = "abc";
  EXPECT_FALSE(Note_Of_Pane(w(), 0).observation);
}

// The image reaches 100 m to each side on Z = 0.
TEST_F(PaneNotes, SayWhenThePhotographDoesNotHoldTheSolution) {
  EXPECT_FALSE(Note_Of_Pane(w(), 0).lacks_solution);  // there is none
  w().SolutionValid = true;
  w().Solution3D = {99, 0, 0};
  EXPECT_FALSE(Note_Of_Pane(w(), 0).lacks_solution);
  w().Solution3D = {101, 0, 0};
  EXPECT_TRUE(Note_Of_Pane(w(), 0).lacks_solution);
  w().Solution3D = {0, 0, 2000};  // behind the camera, where the formulas give the image's middle
  EXPECT_TRUE(Note_Of_Pane(w(), 0).lacks_solution);
}

TEST_F(PaneNotes, TellTheModeThatTakesTheClick) {
  w().Menu.Measure_Surface = true;
  EXPECT_EQ(Active_Mode(w()), "surface points (pair)");
  w().Form1.MeasureDistancesCheckBox.Value = 1;
  EXPECT_EQ(Active_Mode(w()), "crown widths");
  w().Crown.CrownClickOne = true;
  EXPECT_EQ(Active_Mode(w()), "crown width, first end set");
  w().Menu.Draw_Polygon = true;
  EXPECT_EQ(Active_Mode(w()), "polygon");
  w().Menu.Measure_Tie_and_CP = true;
  EXPECT_EQ(Active_Mode(w()), "tie points");
}

TEST_F(PaneNotes, ACorrelationPaneSaysSo) {
  w().ImageKinds(0) = 2;
  w().CorrelationRecords(0) = w().ImageBlock(0);
  w().CorrelationPaneViews(0) = {0, 0, 0, 0, 1, 1};
  EXPECT_EQ(Note_Of_Pane(w(), 0).mode, "correlation");
}

TEST_F(PaneNotes, TopsStandAtTheMeansOfTheirClustersTheHeaviestFirst) {
  Add_Top(10, 20, 0, 1.5, 3);
  Add_Top(-10, 5, 0, 4, 5);
  Add_Top(500, 0, 0, 9, 9);  // outside the pane
  Add_Top(0, 0, 0, 0, 0);    // without weight
  const std::vector<ShownTop> tops = Shown_Tops(w(), 0);
  ASSERT_EQ(tops.size(), 2U);
  EXPECT_EQ(tops[0].number, 2);
  EXPECT_DOUBLE_EQ(tops[0].score, 0.8);
  EXPECT_EQ(tops[1].number, 1);
  EXPECT_DOUBLE_EQ(tops[1].score, 0.5);
  const PanePosition at = block.Pane_Of(0, {10, 20, 0});
  EXPECT_NEAR(tops[1].at.px, at.px, 1e-9);
  EXPECT_NEAR(tops[1].at.py, at.py, 1e-9);
}

TEST_F(PaneNotes, TopsFollowTheView) {
  Add_Top(10, 20, 0, 1.5, 3);
  const PanePosition before = Shown_Tops(w(), 0).at(0).at;
  w().PaneViews(0) = {300, 200, 2000, 2000, 2, 2};
  const PanePosition after = Shown_Tops(w(), 0).at(0).at;
  EXPECT_NEAR(after.px, (before.px - 300) * 2, 1e-9);
  EXPECT_NEAR(after.py, (before.py - 200) * 2, 1e-9);
}

}  // namespace
}  // namespace sylvomex
