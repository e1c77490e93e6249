// SPDX-License-Identifier: MIT
#include "crowns/crown_echoes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace sylvomex {
namespace {

std::vector<std::int32_t> Order_Of(const std::vector<GroundedEcho>& echoes) {
  std::vector<std::int32_t> order(echoes.size());
  std::iota(order.begin(), order.end(), 1);
  std::ranges::stable_sort(order, {}, [&](std::int32_t i) {
    return echoes[static_cast<std::size_t>(i - 1)].Normal_Height();
  });
  return order;
}

CrownEchoes Sorted_Echoes(const std::vector<GroundedEcho>& echoes) {
  return {echoes, Order_Of(echoes)};
}

// Ground 100 m; height above it.
GroundedEcho Echo(double X, double Y, double height) {
  return {{4, X, Y, static_cast<float>(100 + height)}, 100};
}

// A tree at 0, 0 of 20 m height with the start profile of species 1.
CrownRecord Tree(double X = 0, double Y = 0, float height = 20) {
  return {X, Y, 100 + height, height, 0, 0.1, 0.75, 0.5};
}

// The walk over every echo from the top down, as it would be done without an index.
std::vector<CrownEcho> Plain_Walk(const CrownEchoes& echoes, const CrownRecord& crown,
                                  const GrowthLimits& limits) {
  std::vector<CrownEcho> taken;
  for (std::int32_t rank = echoes.Count() - 1; rank >= 0; --rank) {
    const double height = echoes.At(rank).Normal_Height();
    if (echoes.Is_Used(rank) || !(height > limits.above) || !(height < limits.below)) continue;
    const LidarPoint& point = echoes.At(rank).point;
    const double radial = std::sqrt((point.X - crown.X) * (point.X - crown.X) +
                                    (point.Y - crown.Y) * (point.Y - crown.Y));
    const double depth = std::max(crown.Height - height, limits.least_depth);
    const double sine = std::sin(4 * (depth + limits.depth_offset) / crown.Height);
    const double radius = std::pow(sine, crown.P) * (crown.Height * crown.A) + crown.B;
    if (radius > radial) {
      taken.push_back({rank, static_cast<float>(radial), static_cast<float>(depth)});
    }
  }
  return taken;
}

TEST(CrownEchoes, NormalHeightIsKeptToSinglePrecision) {
  EXPECT_EQ(Echo(0, 0, 20.1).Normal_Height(), static_cast<float>(double{120.1F} - 100));
}

TEST(CrownEchoes, TheSeedIsTheHighestUnusedBelowTheHighestOfAll) {
  CrownEchoes echoes = Sorted_Echoes({Echo(0, 0, 5), Echo(1, 0, 18), Echo(2, 0, 22)});
  ASSERT_EQ(echoes.Next_Seed(10), 1);
  echoes.Use(1);
  EXPECT_EQ(echoes.Next_Seed(10), std::nullopt);
  EXPECT_EQ(echoes.Next_Seed(4), 0);
}

TEST(CrownEchoes, ASeedExactlyAtTheLimitIsNone) {
  CrownEchoes echoes = Sorted_Echoes({Echo(0, 0, 10), Echo(2, 0, 22)});
  EXPECT_EQ(echoes.Next_Seed(10), std::nullopt);
  EXPECT_EQ(echoes.Next_Seed(9.99), 0);
}

TEST(CrownEchoes, OneEchoAloneHasNoNextSeed) {
  EXPECT_EQ(Sorted_Echoes({Echo(0, 0, 30)}).Next_Seed(10), std::nullopt);
  EXPECT_EQ(CrownEchoes({}, {}).Next_Seed(10), std::nullopt);
}

TEST(CrownGrowth, TakesFromTheTopDownWhatLiesInsideTheProfile) {
  // At 4 m depth sin(0.8) ^ 0.75 * 2 + 0.5 = 2.058.
  CrownEchoes echoes = Sorted_Echoes({Echo(2.05, 0, 16), Echo(0, 2.07, 16), Echo(0.3, 0.4, 19),
                                      Echo(1, 0, 10), Echo(1, 0, 10.01)});
  const std::vector<CrownEcho> taken = echoes.Grow(Tree(), {.above = 10});
  ASSERT_EQ(taken.size(), 3U);
  EXPECT_NEAR(taken[0].radial, 0.5, 1e-6);
  EXPECT_NEAR(taken[0].depth, 1, 1e-5);
  EXPECT_NEAR(taken[1].radial, 2.05, 1e-6);
  EXPECT_NEAR(taken[2].depth, 9.99, 1e-5);
}

TEST(CrownGrowth, TakenEchoesAreUsedAndNotTakenAgain) {
  CrownEchoes echoes = Sorted_Echoes({Echo(0.1, 0, 15), Echo(0.2, 0, 16)});
  EXPECT_EQ(echoes.Grow(Tree(), {.above = 10}).size(), 2U);
  EXPECT_TRUE(echoes.Is_Used(0));
  EXPECT_TRUE(echoes.Grow(Tree(), {.above = 10}).empty());
}

TEST(CrownGrowth, AnEchoExactlyOnTheProfileStaysOutside) {
  // Depth 0: the radius is the offset 0.5.
  CrownEchoes echoes = Sorted_Echoes({Echo(0.5, 0, 20), Echo(0.499, 0, 20)});
  EXPECT_EQ(echoes.Grow(Tree(), {.above = 10}).size(), 1U);
}

TEST(CrownGrowth, AnEchoAboveTheTopHasNoRadiusUnlessItsDepthIsRaised) {
  CrownEchoes echoes = Sorted_Echoes({Echo(0, 0, 20.5)});
  EXPECT_TRUE(echoes.Grow(Tree(), {.above = 19, .below = 21}).empty());
  EXPECT_EQ(echoes.Grow(Tree(), {.above = 19, .least_depth = 0.01, .depth_offset = 0.001}).size(),
            1U);
}

TEST(CrownGrowth, EqualsTheWalkOverAllEchoes) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 50), height(0, 25);
  std::vector<GroundedEcho> list;
  for (int i = 0; i < 12000; ++i) {
    list.push_back(Echo(2516400 + place(random), 6857000 + place(random), height(random)));
  }
  CrownEchoes echoes = Sorted_Echoes(list);
  for (int tree = 0; tree < 200; ++tree) {
    CrownRecord crown =
        Tree(2516400 + place(random), 6857000 + place(random), 10 + static_cast<float>(tree) / 14);
    crown.A = tree % 7 == 0 ? 0.3 : 0.1;
    crown.B = tree % 5 == 0 ? -0.4 : 0.5;
    const GrowthLimits limits{.above = 0.5 * crown.Height,
                              .least_depth = tree % 3 == 0 ? 0.01 : -100,
                              .depth_offset = tree % 3 == 0 ? 0.001 : 0};
    const std::vector<CrownEcho> expected = Plain_Walk(echoes, crown, limits);
    const std::vector<CrownEcho> taken = echoes.Grow(crown, limits);
    ASSERT_EQ(taken.size(), expected.size()) << tree;
    for (std::size_t i = 0; i < taken.size(); ++i) {
      EXPECT_EQ(taken[i].rank, expected[i].rank);
      EXPECT_EQ(taken[i].radial, expected[i].radial);
      EXPECT_EQ(taken[i].depth, expected[i].depth);
    }
  }
}

TEST(PlaceGrid, FindsEveryPlaceWithinReach) {
  std::mt19937 random(3);
  std::normal_distribution<double> place(0, 40);
  std::vector<double> X, Y;
  for (int i = 0; i < 3000; ++i) {
    X.push_back(2.5e6 + place(random));
    Y.push_back(6.8e6 + place(random));
  }
  X[17] = 1e300;
  Y[18] = std::nan("");
  const PlaceGrid grid(X, Y, 2);
  std::vector<std::int32_t> near;
  for (const double reach : {0.0, 0.5, 3.0, 200.0, 1e6, 1e305}) {
    grid.Near(2.5e6, 6.8e6, reach, near);
    EXPECT_TRUE(std::ranges::is_sorted(near));
    for (int i = 0; i < 3000; ++i) {
      const auto n = static_cast<std::size_t>(i);
      const bool inside = std::fabs(X[n] - 2.5e6) <= reach && std::fabs(Y[n] - 6.8e6) <= reach;
      if (inside) {
        EXPECT_TRUE(std::ranges::binary_search(near, i)) << reach << " " << i;
      }
    }
  }
}

TEST(PlaceGrid, NegativeReachesFindNothing) {
  const std::vector<double> at{1, 2, 3};
  const PlaceGrid grid(at, at, 1);
  std::vector<std::int32_t> near{9};
  grid.Near(2, 2, -1, near);
  EXPECT_TRUE(near.empty());
  grid.Near(2, 2, std::nan(""), near);
  EXPECT_TRUE(near.empty());
}

TEST(PlaceGrid, PlacesOnOneSpotOrNoneAtAllAreServed) {
  const std::vector<double> spot{5, 5};
  std::vector<std::int32_t> near;
  PlaceGrid(spot, spot, 1).Near(5, 5, 0, near);
  EXPECT_EQ(near.size(), 2U);
  PlaceGrid({}, {}, 1).Near(5, 5, 1, near);
  EXPECT_TRUE(near.empty());
}

}  // namespace
}  // namespace sylvomex
