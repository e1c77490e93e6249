// SPDX-License-Identifier: MIT
#include "demo/table/crown_comparison.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

constexpr double kMiddleX = kForestWest + 150, kMiddleY = kForestSouth + 150;

// Echoes on the axis of a tree, from its top down to 8 m.
std::vector<LidarPoint> Echoes_In(const Tree& tree, int count) {
  std::vector<LidarPoint> echoes;
  for (int i = 0; i < count; ++i) {
    echoes.push_back({1, tree.X, tree.Y, static_cast<float>(tree.TopZ - 8.0 * i / count)});
  }
  return echoes;
}

// Half the height: sin(2)^0 x 20 x 0.1 + b.
CrownRecord Crown_At(double X, double Y, double b = 0.5) { return {X, Y, 170, 20, 30, 0.1, 0, b}; }

TEST(CrownComparison, ATreeCountsWithTwentyFiveEchoesInItsUpperCrown) {
  const Tree tree = Tree_At(1, Species::Spruce, 150, 150);
  const Scene scene = Scene_Of({tree});
  EXPECT_TRUE(Crowns_Of_Trees(scene, kMiddleX, kMiddleY, {}, Echoes_In(tree, 24)).empty());
  const auto trees = Crowns_Of_Trees(scene, kMiddleX, kMiddleY, {}, Echoes_In(tree, 25));
  ASSERT_EQ(trees.size(), 1U);
  EXPECT_EQ(trees[0].echoes, 25);
  EXPECT_FALSE(trees[0].crown);
}

TEST(CrownComparison, EchoesBesideTheCrownOrBelowHalfTheHeightDoNotCount) {
  const Tree tree = Tree_At(1, Species::Spruce, 150, 150);
  std::vector<LidarPoint> echoes = Echoes_In(tree, 25);
  echoes[0].X += 1;                               // at the top the crown is narrow
  echoes[24].Z = 160;                             // half of 20 m over 150 m
  echoes.push_back({1, tree.X, tree.Y, 170.5F});  // above the top
  EXPECT_TRUE(Crowns_Of_Trees(Scene_Of({tree}), kMiddleX, kMiddleY, {}, echoes).empty());
}

TEST(CrownComparison, TreesThatReachOutOfTheBoxDoNotCount) {
  const Tree tree = Tree_At(1, Species::Spruce, 173, 150);  // 2.5 m of radius
  EXPECT_TRUE(
      Crowns_Of_Trees(Scene_Of({tree}), kMiddleX, kMiddleY, {}, Echoes_In(tree, 40)).empty());
}

TEST(CrownComparison, ACrownBelongsToTheNearestTreeOnly) {
  const Tree west = Tree_At(1, Species::Spruce, 150, 150),
             east = Tree_At(2, Species::Birch, 154, 150);
  std::vector<LidarPoint> echoes = Echoes_In(west, 30), others = Echoes_In(east, 30);
  echoes.insert(echoes.end(), others.begin(), others.end());
  const auto trees = Crowns_Of_Trees(Scene_Of({west, east}), kMiddleX, kMiddleY,
                                     {Crown_At(west.X + 1.9, west.Y)}, echoes);
  ASSERT_EQ(trees.size(), 2U);
  EXPECT_TRUE(trees[0].crown);
  EXPECT_FALSE(trees[1].crown);
}

TEST(CrownComparison, ACrownWhoseAxisLiesBesideEveryTreeBelongsToNone) {
  const Tree tree = Tree_At(1, Species::Spruce, 150, 150);
  const auto trees = Crowns_Of_Trees(Scene_Of({tree}), kMiddleX, kMiddleY,
                                     {Crown_At(tree.X + 2.6, tree.Y)}, Echoes_In(tree, 30));
  ASSERT_EQ(trees.size(), 1U);
  EXPECT_FALSE(trees[0].crown);
}

TEST(CrownComparison, ErrorsAreFittedLessTrue) {
  Tree tree = Tree_At(1, Species::Birch, 150, 150);
  tree.crown_length = 12;  // radius 2.5 sqrt(10 / 12) at half the height
  CrownRecord crown = Crown_At(tree.X + 0.3, tree.Y - 0.4);
  crown.Height = 19;
  const CrownErrors errors = Errors_Of({{tree, 30, crown}, {tree, 30, {}}}, Species::Birch);
  EXPECT_EQ(errors.trees, 2U);
  ASSERT_EQ(errors.plan.size(), 1U);
  EXPECT_NEAR(errors.plan[0], 0.5, 1e-9);
  EXPECT_NEAR(errors.height[0], -1, 1e-9);
  EXPECT_NEAR(errors.radius[0], 19 * 0.1 + 0.5 - 2.5 * std::sqrt(10.0 / 12), 1e-9);
  EXPECT_EQ(Errors_Of({{tree, 30, crown}}, Species::Pine).trees, 0U);
}

TEST(CrownComparison, ACrownThatEndsAboveHalfTheHeightHasItsGreatestRadiusThere) {
  Tree tree = Tree_At(1, Species::Pine, 150, 150);
  tree.crown_length = 8;
  EXPECT_EQ(True_Radius_At_Half(tree), 2.5);
}

}  // namespace
}  // namespace sylvomex::demo
