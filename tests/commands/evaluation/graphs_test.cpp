// SPDX-License-Identifier: MIT
// Marks of the six graphs for the evaluated plot. Panes of 620 x 600: 20 pixels per metre of
// height, 620 / 22 per metre in plan.
#include <algorithm>
#include <cmath>

#include "commands/evaluation/evaluated_plot.h"

namespace sylvomex {
namespace {

constexpr Colour kRed{255, 0, 0}, kBlue{0, 0, 255}, kBlack{0, 0, 0};

class Graphs : public EvaluatedPlot {
 protected:
  Graphs() {
    for (Picture& pane : w.Form6.Picture1) {
      pane.Width = 620;
      pane.Height = 600;
    }
    Load_Trees();
  }

  void Show_Without_Error() {
    Show();
    EXPECT_TRUE(screen.errors.empty()) << screen.errors.front();
    EXPECT_TRUE(screen.messages.empty());
  }

  /// The points of a pane of that colour at a position.
  int Points_At(int k, double px, double py, Colour colour) {
    return static_cast<int>(std::ranges::count_if(Pane(k).marks, [&](const Mark& mark) {
      return mark.kind == Mark::Kind::Point && mark.colour == colour &&
             std::abs(mark.x1 - px) < 1e-9 && std::abs(mark.y1 - py) < 1e-9;
    }));
  }

  int Lines_Between(int k, double px1, double py1, double px2, double py2, Colour colour) {
    return static_cast<int>(std::ranges::count_if(Pane(k).marks, [&](const Mark& mark) {
      return mark.kind == Mark::Kind::Line && mark.colour == colour &&
             std::abs(mark.x1 - px1) < 1e-9 && std::abs(mark.y1 - py1) < 1e-9 &&
             std::abs(mark.x2 - px2) < 1e-9 && std::abs(mark.y2 - py2) < 1e-9;
    }));
  }

  int Points_Of(int k, Colour colour) {
    return static_cast<int>(std::ranges::count_if(Pane(k).marks, [&](const Mark& mark) {
      return mark.kind == Mark::Kind::Point && mark.colour == colour;
    }));
  }

  bool Says(int k, const std::string& text) {
    const auto texts = Texts(k);
    return std::ranges::find(texts, text) != texts.end();
  }
};

TEST_F(Graphs, EveryPaneBeginsWithItsTitle) {
  Show_Without_Error();
  const char* const titles[] = {"Z-errors of matched trees",
                                "XY-error vectors of matched trees",
                                "Z-errors of matched trees in XY-plane",
                                "Tree heights / cluster-heights in M/O/C -classes",
                                "DEM-errors",
                                "Elevation by tacheometer"};
  for (int k = 0; k <= 5; ++k) EXPECT_EQ(Texts(k).at(0), titles[k]);
}

TEST_F(Graphs, ZErrorsAreOverHeightsInRedAndBlueNextToACommission) {
  Show_Without_Error();
  EXPECT_EQ(Points_At(0, 20 + 10 * 20, 300 - 1 * 20, kRed), 1);
  EXPECT_EQ(Points_At(0, 20 + 20 * 20, 300 - 2 * 20, kBlue), 1);
  EXPECT_EQ(Points_At(0, 20 + 30 * 20, 300 - 2 * 20, kRed), 1);
}

// a = 2/3, b = 0.05: e = 7/6 at 10 m and 23/12 at 25 m.
TEST_F(Graphs, TheRegressionLineRunsInGreenFromTenToTwentyFiveMetres) {
  Show_Without_Error();
  EXPECT_EQ(Lines_Between(0, 220, 300 - 20 * 7.0 / 6, 520, 300 - 20 * 23.0 / 12, {0, 255, 0}), 1);
}

TEST_F(Graphs, TheErrorAxisIsABlackLine) {
  Show_Without_Error();
  EXPECT_EQ(Lines_Between(0, 20, 300, 600, 300, kBlack), 1);
}

TEST_F(Graphs, TheRegressionIsShownWithTheMatchedVolume) {
  Show_Without_Error();
  EXPECT_TRUE(Says(0, "Matched Volume: 80.0 %"));  // 0.6 m3 of 0.75 m3
  EXPECT_TRUE(Says(0, "Zer = .67+.050 * h  se(b): .029 r2: .7500"));
}

TEST_F(Graphs, AFallingLineHasAMinusBeforeItsSize) {
  Set_Clusters({{1000, 2000, 158}, {1005, 2000, 168}, {1000, 2005, 179}});  // errors 2, 2, 1
  Load_Trees();
  Show_Without_Error();
  EXPECT_TRUE(Says(0, "Zer = 2.67-.050 * h  se(b): .029 r2: .7500"));
}

TEST_F(Graphs, VectorsRunFromTheBlackTreeToItsClusterInPlan) {
  Show_Without_Error();
  const double s = 620.0 / 22;
  EXPECT_EQ(Points_At(1, 310, 300, kBlack), 1);
  EXPECT_EQ(Lines_Between(1, 310, 300, 310 + 0.3 * s, 300 - 0.4 * s, kBlack), 1);
  EXPECT_EQ(Points_At(1, 310, 300, kBlue), 1);
  EXPECT_EQ(Points_At(1, 310 + 0.3 * s, 300 - 0.4 * s, kRed), 1);
  EXPECT_EQ(Lines_Between(1, 310, 300 - 5 * s, 310, 300 - 6 * s, kBlack), 1);
  EXPECT_TRUE(Says(1, "XY-RMSE: .65 m"));  // sqrt((0.25 + 0 + 1) / 3)
}

TEST_F(Graphs, ThePlotsBorderLeavesItsTextsFree) {
  Show_Without_Error();
  constexpr Colour kGrey{150, 150, 150};
  for (const int k : {1, 2}) {
    int arcs = 0;
    for (const Mark& mark : Pane(k).marks) {
      if (mark.kind != Mark::Kind::Line || mark.colour != kGrey) continue;
      ++arcs;
      for (const auto& [px, py] : {std::pair(mark.x1, mark.y1), std::pair(mark.x2, mark.y2)}) {
        EXPECT_FALSE(py < 54 && px < 235) << px << " " << py;
        EXPECT_FALSE(py < 88 && px > 540) << px << " " << py;
        EXPECT_LE(py, 580);
      }
    }
    EXPECT_GT(arcs, 40);
    EXPECT_LT(arcs, 72);
  }
}

TEST_F(Graphs, PlansNameTheirUpwardAxisAtItsFoot) {
  Show_Without_Error();
  for (const Mark& mark : Pane(1).marks) {
    if (mark.kind != Mark::Kind::Text) continue;
    const std::string& text = Pane(1).texts[static_cast<std::size_t>(mark.text)].text;
    if (text == "m north") {
      EXPECT_GT(mark.y1, 560);
    }
  }
  EXPECT_TRUE(Says(1, "m north"));
}

TEST_F(Graphs, MarksInThePlanGrowWithTheSizeOfTheError) {
  Set_Clusters({{1000, 2000, 159}, {1005, 2000, 172}, {1000, 2005, 180}});  // errors 1, -2, 0
  Load_Trees();
  Show_Without_Error();
  const double s = 620.0 / 22;
  const auto width_at = [&](double px, double py, Colour colour) {
    for (const Mark& mark : Pane(2).marks) {
      if (mark.kind == Mark::Kind::Point && mark.colour == colour &&
          std::abs(mark.x1 - px) < 1e-9 && std::abs(mark.y1 - py) < 1e-9) {
        return static_cast<int>(mark.width);
      }
    }
    return -1;
  };
  EXPECT_EQ(width_at(310, 300, kRed), 28);           // 1 m
  EXPECT_EQ(width_at(310 + 5 * s, 300, kBlue), 56);  // 2 m below
  EXPECT_EQ(width_at(310, 300 - 5 * s, kRed), 2);    // no error
  EXPECT_TRUE(Says(2, "Z-RMSE: 1.29 m"));            // sqrt(5 / 3)
}

TEST_F(Graphs, EveryTreeAndClusterIsASquareOfItsClass) {
  Show_Without_Error();
  EXPECT_EQ(Points_Of(3, {25, 155, 25}), 3 + 1);  // plus one in the legend
  EXPECT_EQ(Points_Of(3, kBlue), 1 + 1);
  EXPECT_EQ(Points_Of(3, kBlack), 2 + 1);
  EXPECT_TRUE(Says(3, "M, matched tree: 3"));
  EXPECT_TRUE(Says(3, "O, omitted tree: 1"));
  EXPECT_TRUE(Says(3, "C, cluster without a tree: 2"));
}

// Cluster 4 is 162 - 150.5 = 11.5 m above the raster model: column 11 to 12, the first square in
// it.
TEST_F(Graphs, ASquareLiesOverItsMetreOfHeight) {
  Show_Without_Error();
  EXPECT_EQ(Points_At(3, 20 + 11.5 * 20, 580 - 10, kBlack), 1);
}

TEST_F(Graphs, WithoutARasterModelClusterHeightsAreAboveThePlotCentre) {
  w.RasterDemLoaded = false;
  Show_Without_Error();
  EXPECT_EQ(Points_At(3, 20 + 12.5 * 20, 580 - 10, kBlack), 1);  // 162 - 150
}

TEST_F(Graphs, SquaresOfOneMetreAreStacked) {
  w.Evaluation.ReferenceTree[1].TreeHeight = 10.9;
  Show();
  EXPECT_EQ(Points_At(3, 20 + 10.5 * 20, 580 - 10, {25, 155, 25}), 1);
  EXPECT_EQ(Points_At(3, 20 + 10.5 * 20, 580 - 30, {25, 155, 25}), 1);
}

TEST_F(Graphs, HeightsOutsideTheAxisFallIntoItsFirstAndLastColumn) {
  w.Evaluation.ReferenceTree[0].TreeHeight = -3;
  w.Evaluation.ReferenceTree[1].TreeHeight = 41;
  Show();
  EXPECT_EQ(Points_At(3, 20 + 0.5 * 20, 580 - 10, {25, 155, 25}), 1);
  EXPECT_EQ(Points_At(3, 20 + 29.5 * 20, 580 - 30, {25, 155, 25}), 1);  // on tree 3 of 30 m
}

TEST_F(Graphs, DemErrorsAreTheRasterMinusTheMeasuredGround) {
  Show_Without_Error();
  EXPECT_TRUE(Says(4, " RMSE: .50 Mean: .25"));  // 0.5, 0.5, 0.5, -0.5
  EXPECT_EQ(Points_Of(4, kRed), 4);
}

TEST_F(Graphs, ElevationsAreRedAboveTheMeasuredGroundAndBlueBelow) {
  Show_Without_Error();
  EXPECT_EQ(Points_Of(5, kRed), 3 + 1);  // plus one in the legend
  EXPECT_EQ(Points_Of(5, kBlue), 1 + 1);
  EXPECT_TRUE(Says(5, "150.0"));
}

TEST_F(Graphs, WithoutARasterModelItsHeightIsMinus99AndTheGraphShowsIt) {
  w.RasterDemLoaded = false;
  Show_Without_Error();
  EXPECT_TRUE(Says(4, " RMSE: 249.25 Mean: -249.25"));  // three times -249 and -250
  EXPECT_TRUE(Says(4, "no raster height model is loaded"));
  EXPECT_TRUE(Says(5, "no raster height model is loaded"));
}

TEST_F(Graphs, ShowingAgainGivesTheSameMarks) {
  Show_Without_Error();
  const auto before = Pane(2).marks.size();
  Show_Without_Error();
  EXPECT_EQ(Pane(2).marks.size(), before);
  EXPECT_EQ(Pane(2).DrawWidth, 1);
}

}  // namespace
}  // namespace sylvomex
