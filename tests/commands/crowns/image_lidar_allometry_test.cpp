// SPDX-License-Identifier: MIT
#include "commands/crowns/image_lidar_allometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "commands/crowns/crown_block.h"
#include "commands/crowns/crown_exchange.h"
#include "support/file_size_limit.h"

namespace sylvomex {
namespace {

constexpr double kX = LidarBlock::kX, kY = LidarBlock::kY;

void Play(CrownBlock& b, Answer start = Answer::Yes) {
  b.Write_2006();
  b.screen.answers.push_back(start);
  Image_Lidar_Allometry_Algorithm(b.w);
}

// A first tree that is the highest, then another one.
struct TwoTrees : CrownBlock {
  explicit TwoTrees(const ModelTree& second = {kX + 10, kY + 5, 20}) {
    Add_Tree({kX - 10, kY - 5, 24});
    Add_Tree(second);
  }
};

TEST(Allometry, FitsModelledCrownsFromTheHighestDown) {
  TwoTrees b;
  Play(b);
  ASSERT_EQ(b.w.Crowns.TreeCount, 2);
  EXPECT_NEAR(b.Tree(2).X, kX + 10, 1e-6);
  EXPECT_NEAR(b.Tree(2).Y, kY + 5, 1e-6);
  EXPECT_EQ(b.Tree(2).TopZ, 120);
  EXPECT_EQ(b.Tree(2).Height, 20);
  EXPECT_EQ(b.Tree(2).PointCount, 60);
  EXPECT_NEAR(b.Tree(2).A, 0.09, 1e-3);
  EXPECT_NEAR(b.Tree(2).P, 0.8, 1e-3);
  EXPECT_NEAR(b.Tree(2).B, 0.4, 1e-3);
}

TEST(Allometry, TheFirstTreeCountsItsSeedAndLaterOnesDoNot) {
  TwoTrees b;
  Play(b);
  EXPECT_EQ(b.Tree(1).PointCount, 61);
  EXPECT_EQ(b.Tree(1).Height, 24);
  EXPECT_NEAR(b.Tree(1).X, kX - 10, 1e-6);
}

TEST(Allometry, TellsTheDensityBeforeItAsks) {
  TwoTrees b;
  Play(b);
  ASSERT_EQ(b.screen.messages.size(), 2U);
  EXPECT_EQ(b.screen.messages[0], "Lidar density 0.0122 pulses per m2 = 25.254 Kbytes");
  EXPECT_EQ(b.screen.messages[1], "Start crown fiiting");
}

TEST(Allometry, AnsweringNoLeavesTheOverlayAndNoTrees) {
  TwoTrees b;
  Play(b, Answer::No);
  // All echoes of both trees lie at 10 m or more; those at exactly that height are not drawn.
  EXPECT_EQ(b.Marks(0).size(), 122U);
  EXPECT_EQ(b.Marks(0)[0].width, 3);
  // 14 m above 10 m of 15 m: 255 x 14 / 15 = 238, row 59.5, half to even 60.
  b.Expect_Point(0, 0, {kX - 10, kY - 5, 124}, 60, 3);
  EXPECT_EQ(b.w.Crowns.TreeCount, 0);
  EXPECT_TRUE(b.w.LidarPoints.empty());
}

TEST(Allometry, ThePreviewTakesPulsesByTheirFirstSlotAndTheFitByEachEcho) {
  CrownBlock b;
  TestPulse first_outside = Single_Echo({kX, kY, 120});
  first_outside.slot[1] = {kX + 25, kY, 115};
  TestPulse last_outside = Single_Echo({kX + 26, kY, 130});
  last_outside.slot[1] = {kX + 24.9, kY, 125};
  b.pulses = {first_outside, last_outside};
  Play(b, Answer::No);
  EXPECT_EQ(b.Marks(0).size(), 2U);
  b.w.Form1.Picture1(0).marks.clear();
  Play(b);
  EXPECT_EQ(b.w.LidarPoints.size(), 2U);
}

TEST(Allometry, AnAreaWithoutEchoesAboveTenMetresEndsWithOneTree) {
  CrownBlock b;
  b.Add_Echo(kX, kY, 9);
  b.Add_Echo(kX + 5, kY, 8);
  b.Add_Far_Pulses(3);
  Play(b);
  EXPECT_EQ(b.w.Crowns.TreeCount, 1);
  EXPECT_EQ(b.Tree(1).PointCount, 1);
  EXPECT_EQ(b.Tree(1).X, kX);
  EXPECT_EQ(b.Tree(1).A, 0.1);
  EXPECT_EQ(b.Tree(2).Height, 0);
  EXPECT_EQ(b.Status(), "Done Fitting, iterations: 0 RMSE 0.00 m");
}

TEST(Allometry, ThreeHundredMoreSeedsAreTriedAndNoOther) {
  // Single echoes 2.5 m apart, each a centimetre below the one before: no crown reaches another.
  CrownBlock b;
  for (int i = 0; i <= 301; ++i) {
    b.Add_Echo(kX - 22.5 + 2.5 * (i % 19), kY - 22.5 + 2.5 * (i / 19), 20 - 0.01 * i);
  }
  Play(b);
  EXPECT_EQ(b.w.Crowns.TreeCount, 1);
  EXPECT_EQ(b.Status(), "Fitting FAIL, too few points: 0");
  // The entry that every failed seed gives back: echo 0 is the first tree, echo 301 is left.
  EXPECT_NEAR(b.Tree(2).Height, 20 - 0.01 * 300, 1e-4);
}

TEST(Allometry, ACrownOfTwentyFourEchoesFailsAndOneOfTwentyFiveGoesOn) {
  TwoTrees b({kX + 10, kY + 5, 20, {0.09, 0.8, 0.4}, 24});
  Play(b);
  EXPECT_EQ(b.w.Crowns.TreeCount, 1);
  EXPECT_EQ(b.Status(), "Fitting FAIL, too few points: 24");
  TwoTrees more({kX + 10, kY + 5, 20, {0.09, 0.8, 0.4}, 24});
  more.Add_Echo(kX + 10, kY + 5, 19);
  Play(more);
  EXPECT_EQ(more.w.Crowns.TreeCount, 2);
}

TEST(Allometry, EchoesOfAFailedCrownStayUsed) {
  // The failed crown of 24 echoes is followed by no second attempt on the same echoes.
  TwoTrees b({kX + 10, kY + 5, 20, {0.09, 0.8, 0.4}, 24});
  b.Add_Tree({kX + 10, kY - 15, 15});
  Play(b);
  ASSERT_EQ(b.w.Crowns.TreeCount, 2);
  EXPECT_EQ(b.Tree(2).Height, 15);
}

TEST(Allometry, AFittedCrownTellsIterationsRmseAndPoints) {
  TwoTrees b;
  b.w.Form1.Label10.FontSize = 12;
  Play(b);
  EXPECT_TRUE(b.Status().starts_with("Done Fitting, iterations: ")) << b.Status();
  EXPECT_TRUE(b.Status().ends_with(" RMSE 0.00 m in 60 points")) << b.Status();
  EXPECT_EQ(b.w.Form1.Label10.FontSize, 8);
}

TEST(Allometry, ANarrowCrownFailsByItsRatio) {
  // Radius at half the height 0.04 x 20 x 0.909 ^ 0.8 + 0.1 = 0.84 m: 0.042 of the height.
  TwoTrees b({kX + 10, kY + 5, 20, {0.04, 0.8, 0.1}, 60});
  Play(b);
  EXPECT_EQ(b.w.Crowns.TreeCount, 1);
  EXPECT_TRUE(b.Status().starts_with("Fitting FAIL/CROWN RATIO: ")) << b.Status();
  EXPECT_TRUE(b.Status().ends_with(" RMSE 0.00 m in 60 points")) << b.Status();
}

TEST(Allometry, TheAxisMovesByLessThanSixTenthsOfAMetreOnly) {
  // All echoes of the second tree lie 0.7 m east and 0.5 m north of its top.
  TwoTrees b({kX + 10, kY + 5, 20, {0.0, 0.8, 0.001}, 0});
  for (int i = 0; i < 40; ++i) b.Add_Echo(kX + 10.7, kY + 5.5, 19 - 0.2 * i);
  Play(b);
  // It fails, with its number given back and its entry left.
  EXPECT_EQ(b.w.Crowns.TreeCount, 1);
  EXPECT_EQ(b.Tree(2).X, kX + 10);
  EXPECT_NEAR(b.Tree(2).Y, kY + 5.5, 1e-6);
}

TEST(Allometry, TheFirstTreesAxisMovesAnyWay) {
  CrownBlock b;
  b.Add_Echo(kX, kY, 20);
  for (int i = 0; i < 40; ++i) b.Add_Echo(kX + 0.7 + 0.01 * i, kY, 19 - 0.2 * i);
  Play(b);
  EXPECT_NEAR(b.Tree(1).X, kX + 0.7 + 0.01 * 19.5, 1e-6);
}

TEST(Allometry, EchoesOnASingleHeightEndInAFailStateWithFiniteNumbers) {
  TwoTrees b({kX + 10, kY + 5, 20, {0.0, 0.8, 0.001}, 0});
  for (int i = 0; i < 30; ++i) b.Add_Echo(kX + 9 + 0.05 * i, kY + 5.2, 15);
  Play(b);
  EXPECT_EQ(b.w.Crowns.TreeCount, 1);
  EXPECT_TRUE(b.Status().starts_with("Fitting FAIL, iterations: 3 RMSE ")) << b.Status();
  EXPECT_TRUE(b.Status().ends_with(" in 30 points")) << b.Status();
  EXPECT_EQ(b.Tree(2).A, 0.1);
}

TEST(Allometry, GrownEchoesAreSetInTheSecondPane) {
  TwoTrees b;
  Play(b);
  const auto grown = b.Marks_Of(1, Mark::Kind::Point, {255, 156, 60});
  ASSERT_EQ(grown.size(), 120U);
  EXPECT_EQ(grown[0].width, 1);
  EXPECT_TRUE(b.Marks_Of(0, Mark::Kind::Point, {255, 156, 60}).empty());
  // The first echo below the top of the first tree, at depth 24 / 120 m.
  const double depth = 24.0 / 120;
  const double r = std::pow(std::sin(4 * depth / 24), 0.8) * 24 * 0.09 + 0.4;
  const PanePosition at = b.Pane_Of(1, {kX - 10 + r, kY - 5, 124 - depth});
  const PanePosition opposite = b.Pane_Of(1, {kX - 10 - r, kY - 5, 124 - depth});
  const auto near = [&](const PanePosition& p) {
    return std::fabs(grown[0].x1 - p.px) < 1e-3 && std::fabs(grown[0].y1 - p.py) < 1e-3;
  };
  EXPECT_TRUE(near(at) || near(opposite));
}

TEST(Allometry, TheFirstCrownIsDrawnInRingsOfFallingLightOnTheSideOfTheCamera) {
  TwoTrees b;
  Play(b);
  // Depths 0 to 0.4 x 24 = 9.6 m in steps of 1 m: the ring at depth d in 255, 255 - 10 d.
  for (int d = 0; d <= 9; ++d) {
    const auto other = static_cast<std::uint8_t>(255 - 10 * d);
    const auto ring = b.Marks_Of(1, Mark::Kind::Line, {255, other, other});
    EXPECT_GE(ring.size(), 7U) << d;
    EXPECT_LE(ring.size(), 10U) << d;
    for (const Mark& dash : ring) EXPECT_EQ(dash.width, 1);
  }
  EXPECT_TRUE(b.Marks_Of(1, Mark::Kind::Line, {255, 155, 155}).empty());
}

TEST(Allometry, RingsOfALaterCrownStandAtFourTenthsOfTheHeightInTheSpeciesColour) {
  TwoTrees b;
  b.w.Form1.Check2(2).Value = 1;
  Play(b);
  // Tree 2, 20 m: depths 8 and 9.5 m. Tree 1, 24 m: 9.6 and 11.1 m.
  const auto rings = b.Marks_Of(1, Mark::Kind::Line, {0, 100, 255});
  ASSERT_FALSE(rings.empty());
  const CrownRecord tree = b.Tree(2);
  const double r = std::pow(std::sin(4 * 8.0 / 20), tree.P) * 20 * tree.A + tree.B;
  // Of tree 2 the second camera, to the west, faces the dashes from -3.14 on.
  const double t = -3.14;
  const PanePosition from =
      b.Pane_Of(1, {tree.X + r * std::cos(t), tree.Y + r * std::sin(t), 120 - 8});
  const PanePosition to =
      b.Pane_Of(1, {tree.X + r * std::cos(t + 0.314), tree.Y + r * std::sin(t + 0.314), 120 - 8});
  const auto is_it = [&](const Mark& mark) {
    return std::fabs(mark.x1 - (from.px - 1)) < 1e-6 && std::fabs(mark.y1 - (from.py - 1)) < 1e-6 &&
           std::fabs(mark.x2 - (to.px - 1)) < 1e-6 && std::fabs(mark.y2 - (to.py - 1)) < 1e-6;
  };
  EXPECT_EQ(std::ranges::count_if(rings, is_it), 1);
  for (const Mark& dash : rings) EXPECT_EQ(dash.width, 1);
}

// Draw_Crown of a tree at the solution, 20 m high, as wide as 2 m at every depth.
struct DrawnCrown : CrownBlock {
  std::vector<GroundedEcho> list;
  void Add(double dX, double height) {
    list.push_back({{1, kX + dX, kY, static_cast<float>(kGround + height)}, kGround});
  }
  void Draw(double rmse) {
    std::vector<std::int32_t> order;
    for (std::size_t i = 0; i < list.size(); ++i) order.push_back(static_cast<int>(i) + 1);
    CrownEchoes echoes(list, order);
    w.Crowns.CrownTrees(1) = {kX, kY, 120, 20, 30, 0, 0.75, 2};
    Draw_Crown(w, echoes, {1, 3, rmse});
  }
};

TEST(DrawCrown, EchoesAboveSevenTenthsOfTheHeightJoinTheCrownLate) {
  DrawnCrown b;
  b.Add(1.9, 14);
  b.Add(1.9, 14.01);
  b.Add(2.1, 16);
  b.Add(1.9, 20.5);  // above the top: its depth counts as 0.01 m
  b.Draw(0.5);
  EXPECT_EQ(b.Tree(1).PointCount, 32);
  EXPECT_EQ(b.Marks_Of(0, Mark::Kind::Point, {0, 0, 255}).size(), 2U);
  EXPECT_EQ(b.Marks_Of(1, Mark::Kind::Point, {0, 0, 255}).size(), 2U);
}

TEST(DrawCrown, ThoseOfAPoorFitAreWhite) {
  DrawnCrown b;
  b.Add(1, 16);
  b.Draw(0.51);
  EXPECT_EQ(b.Marks_Of(0, Mark::Kind::Point, {255, 255, 255}).size(), 1U);
  EXPECT_FALSE(b.Marks_Of(1, Mark::Kind::Line, {0, 100, 255}).empty());
}

TEST(DrawCrown, EventsAreServicedAfterEachEchoAndEachRing) {
  DrawnCrown b;
  b.Add(1, 16);
  b.Add(1, 17);
  b.Draw(0.2);
  EXPECT_EQ(b.screen.servicings, 4);  // rings at 8 and 9.5 m
}

TEST(Allometry, WithoutAnEchoInTheAreaItSaysSo) {
  CrownBlock b;
  b.Add_Far_Pulses(4);
  b.Write_2006();
  b.screen.answers.push_back(Answer::Yes);
  const std::string failure = Failure_Of([&] { Image_Lidar_Allometry_Algorithm(b.w); });
  EXPECT_NE(failure.find("no lidar echo"), std::string::npos) << failure;
}

TEST(Allometry, AMissingTileIsASilentStopThatLeavesAnEmptyFile) {
  CrownBlock b;
  Image_Lidar_Allometry_Algorithm(b.w);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_EQ(b.folder.Read("c/als2006/064_070.bin"), "");
}

TEST(Allometry, ATileOfCountZeroIsASilentStop) {
  CrownBlock b;
  b.w.LidarPlotScale = 40;
  b.Write_2006();
  Image_Lidar_Allometry_Algorithm(b.w);
  EXPECT_TRUE(b.screen.messages.empty());
  EXPECT_EQ(b.w.LidarPlotScale, 0);
}

TEST(Allometry, OneImageWhereTheSecondIsSampledIsNamed) {
  TwoTrees b;
  b.w.ImageCount = 1;
  b.Write_2006();
  b.screen.answers.push_back(Answer::Yes);
  const std::string failure = Failure_Of([&] { Image_Lidar_Allometry_Algorithm(b.w); });
  EXPECT_NE(failure.find("image 1"), std::string::npos) << failure;
}

TEST(Allometry, MoreThanOneAndAHalfEchoesAPulseAreRefusedByBoundAndPlace) {
  CrownBlock b;
  TestPulse pulse = Single_Echo({kX, kY, 120});
  pulse.slot[1] = {kX + 1, kY, 119};
  b.pulses = {pulse, pulse};
  b.Write_2006();
  b.screen.answers.push_back(Answer::Yes);
  const std::string failure = Failure_Of([&] { Image_Lidar_Allometry_Algorithm(b.w); });
  EXPECT_NE(failure.find("1.5 x 2 = 3"), std::string::npos) << failure;
  EXPECT_NE(failure.find("2516450.00, 6857050.00"), std::string::npos) << failure;
}

TEST(Allometry, ACrownOfMoreThanTwoThousandEchoesIsNamedAndEarlierOnesStayDrawn) {
  TwoTrees b;
  for (int i = 0; i < 1960; ++i) b.Add_Echo(kX + 10, kY + 5, 18 - 0.001 * i);
  b.Write_2006();
  b.screen.answers.push_back(Answer::Yes);
  const std::string failure = Failure_Of([&] { Image_Lidar_Allometry_Algorithm(b.w); });
  EXPECT_NE(failure.find("crown 2 at 2516460.00, 6857055.00"), std::string::npos) << failure;
  EXPECT_NE(failure.find("2000"), std::string::npos) << failure;
  EXPECT_EQ(b.w.Crowns.TreeCount, 1);
  EXPECT_NEAR(b.Tree(1).A, 0.09, 1e-2);
  EXPECT_FALSE(b.Marks_Of(1, Mark::Kind::Line, {255, 255, 255}).empty());
}

TEST(Allometry, ACrownOfExactlyTwoThousandEchoesIsFitted) {
  TwoTrees b;
  for (int i = 0; i < 1940; ++i) b.Add_Echo(kX + 10, kY + 5, 18 - 0.001 * i);
  b.Write_2006();
  b.screen.answers.push_back(Answer::Yes);
  Image_Lidar_Allometry_Algorithm(b.w);
  EXPECT_EQ(b.Tree(2).PointCount, 2000);
}

TEST(Allometry, AFullDiskIsNamedAndLeavesNoHalfNumber) {
  TwoTrees b;
  b.Write_2006();
  b.screen.answers.push_back(Answer::Yes);
  const FileSizeLimit full(1500);  // bytes; the first crown's design takes some 4000
  const std::string failure = Failure_Of([&] { Image_Lidar_Allometry_Algorithm(b.w); });
  EXPECT_TRUE(failure.starts_with("Disk full")) << failure;
  EXPECT_NE(failure.find("A_txt.txt"), std::string::npos) << failure;
  EXPECT_EQ(b.folder.Read("c/data/A_txt.txt"), "");
}

TEST(FitNextCrown, MoreTreesThanTheTableHoldsAreRefused) {
  CrownBlock b;
  const std::vector<GroundedEcho> echoes(2, {{1, kX, kY, 120}, 100});
  const std::vector<std::int32_t> order{1, 2};
  CrownEchoes sorted(echoes, order);
  b.w.Crowns.TreeCount = 5000;
  const std::string failure =
      Failure_Of([&] { Fit_Next_Crown(b.w, sorted, 10, MYFUNC_MATLABCALLNOMSGS); });
  EXPECT_NE(failure.find("crown 5001 at 2516450.00, 6857050.00"), std::string::npos) << failure;
  EXPECT_NE(failure.find("5000"), std::string::npos) << failure;
}

TEST(CrownExchange, TheFourFilesHoldTheProblemAndTheFifthItsSolution) {
  TemporaryFolder folder;
  folder.Make_Folder("c/data");
  const CrownSolver solve = Solver_With_Files(folder.Drives());
  const CrownProblem problem{{{1, 1, 1}, {0, 2, -1}, {1, 0, 3}}, {6, 1, 10.5}};
  const auto x = solve(problem);
  ASSERT_TRUE(x);
  EXPECT_EQ(folder.Read("c/data/A_txt.txt"),
            "1 1 1\n1 2 1\n1 3 1\n2 1 0\n2 2 2\n2 3 -1\n3 1 1\n3 2 0\n3 3 3\n");
  EXPECT_EQ(folder.Read("c/data/L_txt.txt"), "6\n1\n10.5\n");
  EXPECT_EQ(folder.Read("c/data/weights.txt"), "1.00\n1.00\n1.00\n");
  EXPECT_EQ(folder.Read("c/data/matlab.txt"), "3 3 9\n");
  std::istringstream answer(folder.Read("c/data/corr_vectN.txt"));
  for (const double correction : *x) {
    double read = 0;
    answer >> read;
    EXPECT_EQ(read, correction);
  }
}

TEST(CrownExchange, AProblemWithoutASolutionLeavesTheAnswerFile) {
  TemporaryFolder folder;
  folder.Write("c/data/corr_vectN.txt", "old");
  EXPECT_FALSE(Solver_With_Files(folder.Drives())({{{1, 2, 1}, {2, 4, 1}, {3, 6, 1}}, {1, 2, 3}}));
  EXPECT_EQ(folder.Read("c/data/corr_vectN.txt"), "old");
}

TEST(CrownExchange, AMissingFolderIsNamed) {
  TemporaryFolder folder;
  const CrownSolver solve = Solver_With_Files(folder.Drives());
  const std::string failure = Failure_Of([&] { solve({{{1, 2, 1}}, {1}}); });
  EXPECT_NE(failure.find("A_txt.txt"), std::string::npos) << failure;
}

}  // namespace
}  // namespace sylvomex
