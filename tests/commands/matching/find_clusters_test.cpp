// SPDX-License-Identifier: MIT
#include "commands/matching/find_clusters.h"

#include <cmath>
#include <deque>
#include <string>

#include "commands/matching/matching_site.h"

namespace sylvomex {
namespace {

// Four scored points: two of one tree, one of another, one below the limit.
class ClusterPoints : public MatchingSite {
 protected:
  ClusterPoints() {
    m.PlotRadius = 6;
    m.MeshPoints = {{5, 4, 11}, {6, 4, 10}, {-1, 6, 10}, {2, 2, 10}};
    m.PointScore = {0, 1.75F, 1.25F, 1.5F, 1.125F};
    m.SortIndex = {0, 4, 2, 3, 1};
    m.SortCount = 4;
    w.Form1.Text3.Text = "0.25";
  }
};

TEST_F(ClusterPoints, PointsNearerThanTheLimitFormOneWeightedCluster) {
  Choose("Find_clusters");
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_EQ(m.ClusterCount, 2);
  EXPECT_DOUBLE_EQ(m.ClusterWeight(1), 0.75 + 0.25);
  EXPECT_DOUBLE_EQ(m.ClusterSum(1).X, 0.75 * 5 + 0.25 * 6);
  EXPECT_DOUBLE_EQ(m.ClusterSum(1).Z, 0.75 * 11 + 0.25 * 10);
  EXPECT_EQ(m.ClusterInfo(1).Members, 2);
  EXPECT_EQ(m.ClusterInfo(2).Members, 1);
}

TEST_F(ClusterPoints, TheNodeFileNumbersPositionsFromOneInPlainNumbers) {
  Write_Data("testi_89_manual2.nod", "old\n");
  Choose("Find_clusters");
  EXPECT_EQ(Data("testi_89_manual2.nod"), "1,5.25,4,10.75\n2,-1,6,10\n");
}

TEST_F(ClusterPoints, TheStatusCountsAllClustersTwiceAtSizeEight) {
  w.Form1.Label10.FontSize = 10;
  std::vector<std::string> seen;
  screen.on_service = [&] { seen.push_back(w.Form1.Label10.Caption); };
  Choose("Find_clusters");
  ASSERT_EQ(seen.size(), 4U);  // once a pane, then the count
  EXPECT_EQ(seen[3], "Found 2 clusters");
  EXPECT_EQ(w.Form1.Label10.Caption, "Fd 2 cs, 2 in plot r=6.0");
  EXPECT_EQ(w.Form1.Label10.FontSize, 8);
}

TEST_F(ClusterPoints, TheCircleComesFirstAndTheTopsAfterIt) {
  Plot_Point(w.Form1.Picture1(0), 1, 1, {9, 9, 9});
  std::size_t marks_at_count = 0;
  screen.on_service = [&] { marks_at_count = w.Form1.Picture1(0).marks.size(); };
  Choose("Find_clusters");
  EXPECT_EQ(marks_at_count, 62U);  // old marks are gone; 63 angles, the first only moves the pen
  const std::vector<Mark>& marks = w.Form1.Picture1(0).marks;
  ASSERT_EQ(marks.size(), 62U + 2 * 9);
  EXPECT_EQ(marks[0].kind, Mark::Kind::Line);
  EXPECT_EQ(marks[0].colour, (Colour{0, 255, 255}));
  EXPECT_EQ(marks[0].width, 1);
  const PaneView& view = w.PaneViews(0);
  const Point3D first{3 - 6, 3, 2};
  EXPECT_NEAR(marks[0].x1, Site_Col(0, first) - view.ViewCol, 1e-6);
  EXPECT_NEAR(marks[0].y1, 1000 - Site_Row(first) - view.ViewRow, 1e-6);
  const Point3D last{3 + 6 * std::cos(-3.14159265358979 + 6.2),
                     3 + 6 * std::sin(-3.14159265358979 + 6.2), 2};
  EXPECT_NEAR(marks[61].x2, Site_Col(0, last) - view.ViewCol, 1e-6);
  const Mark& top = marks[62 + 4];
  EXPECT_EQ(top.kind, Mark::Kind::Point);
  EXPECT_EQ(top.colour, (Colour{255, 255, 255}));
  EXPECT_EQ(top.width, 2);
  EXPECT_NEAR(top.x1, Site_Col(0, {5.25, 4, 10.75}) - view.ViewCol, 1e-6);
  EXPECT_EQ(w.Form1.Picture1(0).DrawWidth, 1);
}

TEST_F(ClusterPoints, CorrelationPanesAreMarkedThroughTheirRecords) {
  Capture();
  Choose("Compute_Correlation_Images");
  Choose("Find_clusters");
  const Mark& top = w.Form1.Picture1(0).marks.at(62 + 4);
  EXPECT_NEAR(top.x1, Site_Col(0, {5.25, 4, 10.75}) - 683, 1e-6);
  EXPECT_NEAR(top.y1, 680 - Site_Row({5.25, 4, 10.75}), 1e-6);
}

TEST_F(ClusterPoints, TheParametersAreTheEighteenOfTheRun) {
  Capture();
  m.MatchImageCount = 3;
  m.CaptureSnapshot.fHDOM = 1.15;
  m.CaptureSnapshot.Hlow = 0.6;
  m.CaptureSnapshot.Mesh = 0.5;
  m.CaptureSnapshot.ModelTreeHeight = 8.75;
  Set_Solution({1, 1, 1});
  w.Form1.Text7.Text = "7";  // has effect from the next capture on
  Choose("Find_clusters");
  const double wanted[] = {3, 3, 2, 6, 1.3, 3.0, 3, 0, 5, 4, 10.9, 1.5, 0, 3, 1.15, 0.6, 0.5, 8.75};
  for (int i = 0; i < 18; ++i) EXPECT_EQ(m.ClusterParameters(i), wanted[i]) << i;
}

TEST_F(ClusterPoints, TheLimitsAreStoredInTheSnapshot) {
  Choose("Find_clusters");
  EXPECT_EQ(m.CaptureSnapshot.XYt, 1.5);
  EXPECT_EQ(m.CaptureSnapshot.Rl, 0.25);
}

// Replaces every digit by '9', so that a text of digits can be compared with a pattern.
std::string Digits_As_Nines(std::string text) {
  for (char& c : text) {
    if (c >= '0' && c <= '9') c = '9';
  }
  return text;
}

TEST_F(ClusterPoints, TheRunIsDated) {
  Choose("Find_clusters");
  EXPECT_EQ(Digits_As_Nines(m.ClusterRunDate.Padded()), "99.99.9999");
  EXPECT_EQ(m.ClusterRunDate.Padded().substr(6, 2), "20");
  EXPECT_EQ(Digits_As_Nines(m.ClusterRunTime.Padded()), "99:99:99");
}

TEST_F(ClusterPoints, TheResultFileIsCreatedEmptyAndKeptOnceItExists) {
  Choose("Find_clusters");
  EXPECT_EQ(Data("MKres.bin"), "");
  Write_Data("MKres.bin", "results");
  Choose("Find_clusters");
  EXPECT_EQ(Data("MKres.bin"), "results");
  EXPECT_FALSE(Has_Data("MK_vis_trees.bin"));
}

TEST_F(ClusterPoints, AClusterWithoutWeightIsADivisionErrorAndLinesBeforeItStay) {
  m.PointScore = {0, 1.75F, 1.0F, 1.0F, 0.5F};
  m.SortIndex = {0, 4, 2, 3, 1};
  w.Form1.Text3.Text = "0";
  Choose("Find_clusters");
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("Division by zero: cluster 2"), std::string::npos);
  EXPECT_EQ(Data("testi_89_manual2.nod"), "1,5,4,11\n");
}

TEST_F(ClusterPoints, ANonNumericLimitEndsTheCommandWithAnEmptyNodeFile) {
  Write_Data("testi_89_manual2.nod", "old\n");
  w.Form1.Text2.Text = "near";
  Choose("Find_clusters");
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("Type mismatch"), std::string::npos);
  EXPECT_EQ(Data("testi_89_manual2.nod"), "");
}

TEST_F(ClusterPoints, ScoresForALongerMeshAreAFailure) {
  m.MeshPoints.resize(2);
  Choose("Find_clusters");
  ASSERT_EQ(screen.errors.size(), 1U);
  EXPECT_NE(screen.errors[0].find("4 scores for a mesh of 2 points"), std::string::npos);
}

TEST_F(MatchingSite, WithoutScoredPointsThereAreNoClusters) {
  Choose("Find_clusters");
  EXPECT_TRUE(screen.errors.empty());
  EXPECT_TRUE(screen.messages.empty());
  EXPECT_EQ(w.Form1.Label10.Caption, "Fd 0 cs, 0 in plot r=.0");
  EXPECT_EQ(Data("testi_89_manual2.nod"), "");
}

class RandomScreen : public RecordingScreen {
 public:
  std::deque<double> draws;
  int drawn = 0;

  double Random() override {
    ++drawn;
    if (draws.empty()) return 0.5;
    const double draw = draws.front();
    draws.pop_front();
    return draw;
  }
};

TEST(ClusterRunName, IsDrawnAgainWhileAFileOfItExists) {
  const TemporaryFolder folder;
  folder.Write("c/data/12345678.tr", "");
  RandomScreen screen;
  screen.draws = {0.12345678, 0.12345678, 0.00000042};
  const auto block = std::make_unique<Workspace>(folder.Drives(), screen);
  Start_Workspace(*block);
  screen.drawn = 0;
  Find_clusters(*block);
  EXPECT_EQ(screen.drawn, 3);
  EXPECT_EQ(block->Matching.ClusterRunName.Padded(), "00000042");
}

TEST(ClusterRunName, IsDrawnOnceWithoutAFile) {
  const TemporaryFolder folder;
  folder.Make_Folder("c/data");
  RandomScreen screen;
  const auto block = std::make_unique<Workspace>(folder.Drives(), screen);
  Start_Workspace(*block);
  screen.drawn = 0;
  Find_clusters(*block);
  EXPECT_EQ(screen.drawn, 1);
  EXPECT_EQ(block->Matching.ClusterRunName.Padded(), "50000000");
}

}  // namespace
}  // namespace sylvomex
