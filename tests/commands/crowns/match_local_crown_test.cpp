// SPDX-License-Identifier: MIT
#include "commands/crowns/match_local_crown.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "commands/crowns/crown_block.h"
#include "commands/crowns/local_trees.h"
#include "support/failure_of.h"
#include "support/file_size_limit.h"

namespace sylvomex {
namespace {

constexpr double kX = LidarBlock::kX, kY = LidarBlock::kY;

double Radius(const CrownShape& shape, double depth) {
  return std::pow(std::sin(4 * depth / 30), shape.p) * 30 * shape.a + shape.b;
}

// A tree of 30 m at the solution. Species 1: search radius (13 + 0.1636 x 300) / 20 x 0.6 =
// 1.8624 m; echoes are taken between 28.5 and 31 m.
struct LocalTreeBlock : CrownBlock {
  CrownShape truth{0.05, 0.8, 0.2};
  LocalTreeBlock() {
    w.Solution3D = {kX, kY, 130};
    w.Form1.Check2(0).Value = 1;
    Add_Echo(kX, kY, 30);
  }
  void Add_Upper_Crown() {
    for (int i = 0; i < 20; ++i) {
      const double depth = 0.05 + 0.07 * i;
      const double r = Radius(truth, depth);
      Add_Echo(kX + r * std::cos(i), kY + r * std::sin(i), 30 - depth);
    }
  }
  void Run() {
    Write_2006();
    Match_Local_Crown(w);
  }
  const LocalTree& Record() { return w.Crowns.LocalTreeRecord; }
};

TEST(MatchLocalCrown, WithoutATickedSpeciesItIsUnresolved) {
  LocalTreeBlock b;
  b.w.Form1.Check2(0).Value = 0;
  b.Run();
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{"Species unresolved"});
  EXPECT_FALSE(b.w.Crowns.LidarFitDone);
}

TEST(MatchLocalCrown, TwoPointsAreTooFewAndTheFlagStays) {
  LocalTreeBlock b;
  b.Add_Echo(kX + 0.1, kY, 29.5);
  b.w.Crowns.LidarFitDone = true;
  b.Run();
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{"Too few LiDAR points!"});
  EXPECT_EQ(b.Tree(1).PointCount, 2);
  EXPECT_TRUE(b.w.Crowns.LidarFitDone);
  EXPECT_EQ(b.Record().TreeNumber, 0);
}

TEST(MatchLocalCrown, WithoutAnyEchoThereAreTooFew) {
  LocalTreeBlock b;
  b.pulses.clear();
  b.Add_Far_Pulses(2);
  b.Run();
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{"Too few LiDAR points!"});
}

TEST(MatchLocalCrown, OnlyEchoesOfTheTopTwentiethAreTaken) {
  LocalTreeBlock b;
  b.Add_Echo(kX, kY, 29);
  b.Add_Echo(kX, kY, 28.5);        // not above 0.95 x 30 m
  b.Add_Echo(kX + 1.5, kY, 29.9);  // outside the profile
  b.Run();
  EXPECT_EQ(b.Tree(1).PointCount, 2);
}

TEST(MatchLocalCrown, EchoesAboveTheTopAreNotAccepted) {
  LocalTreeBlock b;
  b.Add_Echo(kX, kY, 30.9);  // the highest: it stands for the top
  b.Add_Echo(kX, kY, 30.5);
  b.Add_Echo(kX, kY, 29);
  b.Run();
  // The top of 30 m and the echo of 29 m; depth 0 has the radius 0.3.
  EXPECT_EQ(b.Tree(1).PointCount, 3);
}

TEST(MatchLocalCrown, FillsTheLidarHalfOfTheRecord) {
  LocalTreeBlock b;
  b.Add_Upper_Crown();
  b.Run();
  ASSERT_TRUE(b.screen.messages.empty()) << b.screen.messages[0];
  EXPECT_TRUE(b.w.Crowns.LidarFitDone);
  EXPECT_FALSE(b.w.Crowns.MultiSizeDone);
  EXPECT_EQ(b.Record().PlotId, 0);
  EXPECT_EQ(b.Record().TreeNumber, 1);
  EXPECT_EQ(b.Record().Species, 1);
  EXPECT_EQ(b.Record().Z, 130);
  EXPECT_EQ(b.Record().GroundZ, 100);
  EXPECT_EQ(b.Record().TreeHeight, 30);
  EXPECT_NEAR(b.Record().LidarMax, 29.95, 1e-4);
  EXPECT_EQ(b.Record().PhotoCrownWidth, 0);
  EXPECT_EQ(b.Tree(1).PointCount, 21);
  EXPECT_EQ(b.Tree(1).X, kX);  // the axis stays
  const double s = std::sin(0.2);
  const double diameter =
      2 * (std::pow(s, b.Record().FitP) * 30 * b.Record().FitA + b.Record().FitB);
  EXPECT_NEAR(b.Record().LidarCrownWidth, diameter, 1e-6);
  EXPECT_NEAR(diameter, 2 * Radius(b.truth, 1.5), 0.1);
  EXPECT_EQ(b.Status(), "Dcrm: " + Format(diameter, "0.0 m") + " LidarMax: 29.9 m Foto-h: 30.0 m");
}

TEST(MatchLocalCrown, ATreeNumberBeyond16BitsNamesTheRecord) {
  LocalTreeBlock b;
  b.Add_Upper_Crown();
  b.w.Crowns.LocalTreeRecord.TreeNumber = 32767;
  EXPECT_NE(Failure_Of([&] { b.Run(); }), "no failure");
  ASSERT_EQ(b.screen.causes.size(), 1U);
  EXPECT_NE(b.screen.causes[0].find("the record of the tree: its number"), std::string::npos);
}

TEST(MatchLocalCrown, AnEchoBeyondSinglePrecisionNamesItsPulse) {
  LocalTreeBlock b;
  b.Add_Echo(kX + 0.5, kY, 1e300);
  EXPECT_NE(Failure_Of([&] { b.Run(); }), "no failure");
  ASSERT_EQ(b.screen.causes.size(), 1U);
  EXPECT_EQ(b.screen.causes[0].find("pulse 2, slot "), 0U) << b.screen.causes[0];
}

TEST(MatchLocalCrown, ATopBeyondSinglePrecisionNamesTheTree) {
  LocalTreeBlock b;
  b.w.Solution3D.Z = 1e300;
  EXPECT_NE(Failure_Of([&] { b.Run(); }), "no failure");
  ASSERT_FALSE(b.screen.causes.empty());
  EXPECT_NE(b.screen.causes[0].find("the tree at the solution"), std::string::npos)
      << b.screen.causes[0];
}

TEST(MatchLocalCrown, WritesTwentyMeasures) {
  LocalTreeBlock b;
  b.Add_Upper_Crown();
  b.Run();
  const std::string line = b.folder.Read("c/data/testmeasures.txt");
  EXPECT_EQ(std::ranges::count(line, ','), 19);
  EXPECT_TRUE(line.ends_with(",1\n"));
  // Stem diameter of species 1 by the lidar's and by no crown width, both of 30 m.
  const double lidar = b.Record().LidarCrownWidth;
  const double root = std::sqrt(300.0);
  const double by_lidar =
      (std::pow(1.323 * std::sqrt(10 * lidar) - 3.155 + 0.73 * root, 2) + 0.811) / 10;
  const double by_photo = (std::pow(0.73 * root - 3.155, 2) + 0.811) / 10;
  EXPECT_NEAR(std::stod(line), by_lidar, 1e-5);
  EXPECT_NE(line.find(",0,0,0," + Plain_Text(by_photo).substr(0, 12)), std::string::npos) << line;
  EXPECT_NE(line.find(",2516450,6857050,130,30,29.95"), std::string::npos) << line;
}

TEST(MatchLocalCrown, EachAppliedCorrectionLeavesALineOfParameters) {
  LocalTreeBlock b;
  b.Add_Upper_Crown();
  b.Run();
  const std::string lines = b.folder.Read("c/data/parameters.txt");
  // a = R / H = 1.8624 / 30, p = 0.7, b = 0.3 at the first.
  EXPECT_TRUE(lines.starts_with("1,21,30,0.06208,0.7,0.3,")) << lines;
  EXPECT_NE(lines.find("\n2,21,30,"), std::string::npos);
}

TEST(MatchLocalCrown, RingsAreTwoPixelsWideFromATenthOfAMetre) {
  LocalTreeBlock b;
  b.Add_Upper_Crown();
  b.w.Form1.Picture1(1).CurrentX = 0;
  b.Run();
  // 0.05 x 30 = 1.5 m: rings at 0.1 and 1.1 m.
  const auto first = b.Marks_Of(1, Mark::Kind::Line, {255, 254, 254});
  const auto second = b.Marks_Of(1, Mark::Kind::Line, {255, 244, 244});
  ASSERT_FALSE(first.empty());
  ASSERT_FALSE(second.empty());
  EXPECT_EQ(first[0].width, 2);
  const Picture& pane = b.w.Form1.Picture1(1);
  EXPECT_EQ(pane.font.size, 12);
  EXPECT_EQ(pane.CurrentX, second.back().x2 - 50);
  EXPECT_EQ(pane.CurrentY, second.back().y2 + 20);
}

TEST(MatchLocalCrown, EchoesOfOneDepthEndInTheFailState) {
  LocalTreeBlock b;
  for (int i = 0; i < 6; ++i) b.Add_Echo(kX + 0.05 * i, kY, 29);
  b.Run();
  EXPECT_TRUE(b.Status().starts_with("Fitting FAIL, iterations: 1 RMSE ")) << b.Status();
  EXPECT_FALSE(b.w.Crowns.LidarFitDone);
  EXPECT_FALSE(b.folder.Has("c/data/testmeasures.txt"));
}

TEST(MatchLocalCrown, AMissingTileIsASilentStop) {
  LocalTreeBlock b;
  Match_Local_Crown(b.w);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_EQ(b.folder.Read("c/als2006/064_070.bin"), "");
}

TEST(MatchLocalCrown, ATreeOfNoHeightIsADivisionByZero) {
  LocalTreeBlock b;
  b.w.Solution3D.Z = 100;
  b.Write_2006();
  EXPECT_NE(Failure_Of([&] { Match_Local_Crown(b.w); }).find("height 0"), std::string::npos);
}

TEST(MatchLocalCrown, AFullDiskKeepsTheFitAndTheLinesOfFormerOnes) {
  LocalTreeBlock b;
  b.Add_Upper_Crown();
  b.Write_2006();
  const std::string former(9990, 'x');
  b.folder.Write("c/data/testmeasures.txt", former + "\n");
  const FileSizeLimit full(10000);
  const std::string failure = Failure_Of([&] { Match_Local_Crown(b.w); });
  EXPECT_TRUE(failure.starts_with("Disk full")) << failure;
  EXPECT_NE(failure.find("testmeasures.txt"), std::string::npos) << failure;
  EXPECT_EQ(b.folder.Read("c/data/testmeasures.txt"), former + "\n");
  EXPECT_EQ(b.Record().TreeNumber, 1);
  EXPECT_GT(b.Record().FitRmse, 0);
}

TEST(SaveLocalTree, AFullDiskKeepsTheRecordAndItsFlags) {
  CrownBlock b;
  b.w.Crowns.LocalTreeRecord.FitA = 0.1;
  b.w.Crowns.LidarFitDone = b.w.Crowns.MultiSizeDone = true;
  b.folder.Write("c/data/LK_trees.txt", std::string(9990, 'x') + "\n");
  const FileSizeLimit full(10000);
  EXPECT_TRUE(Failure_Of([&] { Save_Local_Tree(b.w); }).starts_with("Disk full"));
  EXPECT_EQ(b.folder.Read("c/data/LK_trees.txt").size(), 9991U);
  EXPECT_TRUE(b.w.Crowns.LidarFitDone);
  EXPECT_EQ(b.w.Crowns.LocalTreeRecord.FitA, 0.1);
}

TEST(SaveLocalTree, AfterALidarFitAloneItRemindsAndKeepsTheFit) {
  LocalTreeBlock b;
  b.Add_Upper_Crown();
  b.Run();
  Save_Local_Tree(b.w);
  EXPECT_EQ(
      b.screen.messages,
      std::vector<std::string>{"You forgot either Multi-Size TM or crown modelling with lidar"});
  EXPECT_FALSE(b.folder.Has("c/data/LK_trees.txt"));
  EXPECT_TRUE(b.w.Crowns.LidarFitDone);
  EXPECT_GT(b.Record().FitRmse, 0);
}

TEST(SaveLocalTree, WithBothHalvesItAppendsTheLineAndClearsTheFit) {
  CrownBlock b;
  b.w.Crowns.LocalTreeRecord = {7,    3, 2,    kX,   kY,     120.25, 100.5F, 19.75F,
                                19.5, 0, 3.25, 0.25, 0.1234, 0.75,   0.5};
  b.w.Crowns.LidarFitDone = b.w.Crowns.MultiSizeDone = true;
  b.folder.Write("c/data/LK_trees.txt", "");
  Save_Local_Tree(b.w);
  EXPECT_EQ(b.folder.Read("c/data/LK_trees.txt"),
            "7,3,2,2516450.00,6857050.00,120.25,100.50,19.75,19.50,0.00,3.25,0.25,0.1234,0.7500,"
            "0.5000,\n");
  EXPECT_FALSE(b.w.Crowns.LidarFitDone);
  EXPECT_FALSE(b.w.Crowns.MultiSizeDone);
  EXPECT_EQ(b.w.Crowns.LocalTreeRecord.FitA, 0);
  EXPECT_EQ(b.w.Crowns.LocalTreeRecord.LidarCrownWidth, 0);
  EXPECT_EQ(b.w.Crowns.LocalTreeRecord.TreeNumber, 3);
  EXPECT_EQ(b.Marks_Of(1, Mark::Kind::Point, {0, 255, 0}).size(), 1U);
}

std::string Tree_Line(int plot, int number, int species, double X) {
  return std::to_string(plot) + "," + std::to_string(number) + "," + std::to_string(species) + "," +
         Format(X, "0.00") + ",6857050.00,120.00,100,20,19,0,3,0.2,0.1,0.7,0.5,\n";
}

TEST(ShowSavedTrees, PlotsEachTreeWithItsNumberAndEachPlotOnce) {
  CrownBlock b;
  Plot_Point(b.w.Form1.Picture1(0), 1, 1, {1, 2, 3});
  b.folder.Write("c/data/LK_trees.txt", Tree_Line(5, 1, 1, kX) + Tree_Line(5, 2, 3, kX + 3) + "\n" +
                                            Tree_Line(6, 1, 4, kX + 9));
  Show_Saved_Trees(b.w);
  const auto& marks = b.Marks(0);
  ASSERT_EQ(marks.size(), 10U);  // two plots, three trees, a point and a text each
  const PanePosition plot = b.Pane_Of(0, {kX + 35, kY, 120});
  EXPECT_EQ(marks[0].kind, Mark::Kind::Text);
  EXPECT_NEAR(marks[0].x1, plot.px, 1e-6);
  EXPECT_EQ(b.w.Form1.Picture1(0).texts[0].text, "5");
  EXPECT_EQ(b.w.Form1.Picture1(0).texts[0].font.size, 15);
  EXPECT_NEAR(marks[1].x1, plot.px, 1e-6);
  const PanePosition tree = b.Pane_Of(0, {kX, kY, 120});
  EXPECT_NEAR(marks[2].x1, tree.px, 1e-6);
  EXPECT_NEAR(marks[2].y1, tree.py, 1e-6);
  EXPECT_EQ(marks[2].width, 4);
  EXPECT_EQ(marks[2].colour, (Colour{255, 0, 0}));
  EXPECT_EQ(marks[3].kind, Mark::Kind::Text);
  EXPECT_EQ(b.w.Form1.Picture1(0).texts[1].text, "1");
  EXPECT_EQ(b.w.Form1.Picture1(0).texts[1].font.size, 10);
  EXPECT_EQ(marks[4].colour, (Colour{0, 100, 255}));
  EXPECT_EQ(marks[8].colour, (Colour{255, 255, 0}));
}

TEST(ShowSavedTrees, ALineThatIsCutShortIsNamed) {
  CrownBlock b;
  b.folder.Write("c/data/LK_trees.txt", Tree_Line(5, 1, 1, kX) + "5,2,1,2516450.00,\n");
  const std::string failure = Failure_Of([&] { Show_Saved_Trees(b.w); });
  EXPECT_NE(failure.find("LK_trees.txt, line 2"), std::string::npos) << failure;
}

TEST(ShowSavedTrees, WithoutTheFileItIsAFileError) {
  CrownBlock b;
  EXPECT_TRUE(Failure_Of([&] { Show_Saved_Trees(b.w); }).starts_with("File not found"));
}

}  // namespace
}  // namespace sylvomex
