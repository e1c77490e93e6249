// SPDX-License-Identifier: MIT
#include "overlays/plot_geometry.h"

#include <gtest/gtest.h>

#include <cmath>

#include "overlays/ground_difference.h"

namespace sylvomex {
namespace {

TEST(HundredMetreGrid, NineLinesNorthThenNineEastFromTheCorner) {
  // (1234 + 50 - 400) / 100 = 8.84; (-5 + 50 - 400) / 100 = -3.55, down to -4.
  const std::vector<PlanLine> lines = Hundred_Metre_Grid(1234, -5);
  ASSERT_EQ(lines.size(), 18U);
  for (std::size_t i = 0; i < 9; ++i) {
    ASSERT_EQ(lines[i].size(), 9U);
    ASSERT_EQ(lines[9 + i].size(), 9U);
    for (std::size_t j = 0; j < 9; ++j) {
      EXPECT_EQ(lines[i][j].X, 800 + 100.0 * i);
      EXPECT_EQ(lines[i][j].Y, -400 + 100.0 * j);
      EXPECT_EQ(lines[9 + i][j].X, 800 + 100.0 * j);
      EXPECT_EQ(lines[9 + i][j].Y, -400 + 100.0 * i);
    }
  }
}

TEST(HundredMetreGrid, WholeHundredsStartAtTheExactCorner) {
  EXPECT_EQ(Hundred_Metre_Grid(350, 450)[0][0].X, 0);
  EXPECT_EQ(Hundred_Metre_Grid(350, 450)[0][0].Y, 100);
  EXPECT_EQ(Hundred_Metre_Grid(349.9, 450)[0][0].X, -100);
}

TEST(CircularPlot, Has33VerticesOnTheCircleFromWestToWest) {
  const PlanLine circle = Circular_Plot(100, 200);
  ASSERT_EQ(circle.size(), 33U);
  for (std::size_t i = 0; i < circle.size(); ++i) {
    const double t = -3.14 + 3.14 / 16 * static_cast<double>(i);
    EXPECT_NEAR(circle[i].X, 100 + 11.28 * std::cos(t), 1e-9);
    EXPECT_NEAR(circle[i].Y, 200 + 11.28 * std::sin(t), 1e-9);
  }
}

TEST(GroundDifference, MeanAndRootMeanSquareByHand) {
  GroundDifference difference;
  difference.Add(101, 100, 12);  // 1
  difference.Add(103, 100, 25);  // 3
  difference.Add(98, 100, 7);    // -2
  EXPECT_EQ(difference.count, 3);
  EXPECT_NEAR(difference.Mean(), 2.0 / 3, 1e-12);
  EXPECT_NEAR(difference.Rmse(), std::sqrt(14.0 / 3), 1e-12);
  EXPECT_EQ(difference.lowest_tree, 7);
  EXPECT_EQ(difference.highest_tree, 25);
}

}  // namespace
}  // namespace sylvomex
