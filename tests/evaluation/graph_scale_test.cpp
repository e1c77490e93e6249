// SPDX-License-Identifier: MIT
#include "evaluation/graph_scale.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sylvomex {
namespace {

constexpr GraphSize kPane{620, 600};

TEST(ErrorScale, TheHeightOfThePaneIsThirtyMetresOnBothAxes) {
  const GraphScale scale = Error_Scale(kPane);
  EXPECT_EQ(scale.At(0, 0).px, 20);
  EXPECT_EQ(scale.At(0, 0).py, 300);
  EXPECT_EQ(scale.At(25, 0).px, 20 + 25 * 20);
  EXPECT_EQ(scale.At(0, 1.5).py, 300 - 30);
  EXPECT_EQ(scale.At(0, -1.5).py, 300 + 30);
}

TEST(HeightCountScale, HeightsRunAsInTheErrorGraphAndCountsUpFromTheAxis) {
  const GraphScale scale = Height_Count_Scale(kPane, 7);
  EXPECT_EQ(scale.At(10, 0).px, 220);
  EXPECT_EQ(scale.At(10, 0).py, 580);
  EXPECT_EQ(scale.At(10, 3).py, 580 - 21);
}

TEST(PlanScale, ThePlotAndAMetreAroundItFillTheWidth) {
  const GraphScale scale = Plan_Scale({440, 400}, 5000, 7000, 10);  // 20 pixels per metre
  EXPECT_EQ(scale.At(5000, 7000).px, 220);
  EXPECT_EQ(scale.At(5000, 7000).py, 200);
  EXPECT_EQ(scale.At(4989, 7000).px, 0);
  EXPECT_EQ(scale.At(5011, 7000).px, 440);
  EXPECT_EQ(scale.At(5000, 7003).py, 140);  // north is up
}

TEST(ValueScale, TheIntervalsFillTheRoomBetweenAxesAndEdges) {
  const GraphScale scale = Value_Scale(kPane, {10, 20}, {-1, 1}, 40, 60);
  EXPECT_EQ(scale.At(10, -1).px, 60);
  EXPECT_EQ(scale.At(10, -1).py, 580);
  EXPECT_DOUBLE_EQ(scale.At(20, 1).px, 600);
  EXPECT_DOUBLE_EQ(scale.At(20, 1).py, 60);
}

TEST(TickStep, IsOneTwoOrFiveTimesAPowerOfTen) {
  EXPECT_DOUBLE_EQ(Tick_Step(30, 6), 5);
  EXPECT_DOUBLE_EQ(Tick_Step(31, 6), 10);
  EXPECT_DOUBLE_EQ(Tick_Step(0.7, 5), 0.2);
  EXPECT_DOUBLE_EQ(Tick_Step(1000, 10), 100);
}

TEST(TickStep, OfAnEmptyRangeIsOne) {
  EXPECT_EQ(Tick_Step(0, 5), 1);
  EXPECT_EQ(Tick_Step(-3, 5), 1);
  EXPECT_EQ(Tick_Step(std::nan(""), 5), 1);
}

TEST(Ticks, AreTheMultiplesInTheIntervalItsEndsIncluded) {
  EXPECT_EQ(Ticks({-10, 10}, 5), (std::vector<double>{-10, -5, 0, 5, 10}));
  EXPECT_EQ(Ticks({0.5, 2.9}, 1), (std::vector<double>{1, 2}));
}

TEST(Ticks, WithoutAStepOrInUnlimitedNumberThereAreNone) {
  EXPECT_TRUE(Ticks({0, 1}, 0).empty());
  EXPECT_TRUE(Ticks({0, 1e9}, 1).empty());
}

TEST(RoundedOut, EndsAtMultiplesOfItsStep) {
  const std::vector<double> values{161.2, 158.7, 160};
  const Interval interval = Rounded_Out(values, 5);  // 2.5 in 5 parts: steps of 0.5
  EXPECT_DOUBLE_EQ(interval.low, 158.5);
  EXPECT_DOUBLE_EQ(interval.high, 161.5);
}

TEST(RoundedOut, EqualValuesGetOneUnitOnEitherSide) {
  const std::vector<double> values{4, 4};
  EXPECT_EQ(Rounded_Out(values, 5).low, 3);
  EXPECT_EQ(Rounded_Out(values, 5).high, 5);
  EXPECT_EQ(Rounded_Out({}, 5).high, 1);
}

}  // namespace
}  // namespace sylvomex
