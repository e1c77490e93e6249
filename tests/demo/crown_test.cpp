// SPDX-License-Identifier: MIT
#include "demo/scene/crown.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

#include "demo/scene/counter_random.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

constexpr std::array<Species, 3> kAllSpecies = {Species::Pine, Species::Spruce, Species::Birch};

/// The outlines computed independently: radius 2.5, length 12, pine widest 7.8 m down.
bool Inside_By_Hand(const Tree& tree, double X, double Y, double Z) {
  const double depth = tree.TopZ - Z;
  if (depth < 0 || depth > 12) return false;
  double radius = 0;
  if (tree.species == Species::Spruce) radius = 2.5 * std::pow(depth / 12, 0.75);
  if (tree.species == Species::Birch) radius = 2.5 * std::pow(depth / 12, 0.5);
  if (tree.species == Species::Pine) {
    const double half = depth < 7.8 ? 7.8 : 4.2;
    radius = 2.5 * std::sqrt(std::max(0.0, 1 - std::pow((depth - 7.8) / half, 2)));
  }
  return std::hypot(X - tree.X, Y - tree.Y) <= radius;
}

TEST(CrownOutline, SpruceIsHalfAsWideAtTheDepthOfThePowerCurve) {
  const Tree spruce = Tree_At(1, Species::Spruce, 0, 0);
  EXPECT_NEAR(Crown_Outline(spruce, 12).radius, 2.5, 1e-12);
  EXPECT_NEAR(Crown_Outline(spruce, 12 * std::pow(0.5, 4.0 / 3)).radius, 1.25, 1e-12);
}

TEST(CrownOutline, BirchIsRoundedLikeAParaboloid) {
  const Tree birch = Tree_At(1, Species::Birch, 0, 0);
  EXPECT_NEAR(Crown_Outline(birch, 3).radius, 1.25, 1e-12);
  EXPECT_NEAR(Crown_Outline(birch, 12).radius, 2.5, 1e-12);
}

TEST(CrownOutline, PineIsWidestAtTwoThirdsAndClosesBelow) {
  const Tree pine = Tree_At(1, Species::Pine, 0, 0);
  EXPECT_NEAR(Crown_Outline(pine, 7.8).radius, 2.5, 1e-9);
  EXPECT_NEAR(Crown_Outline(pine, 7.8 - 0.6 * 7.8).radius, 2.0, 1e-9);
  EXPECT_NEAR(Crown_Outline(pine, 7.8 + 0.6 * 4.2).radius, 2.0, 1e-9);
  EXPECT_LT(Crown_Outline(pine, 12).radius, 0.01);
}

TEST(CrownOutline, SlopeIsTheRateOfTheRadius) {
  for (const Species species : kAllSpecies) {
    const Tree tree = Tree_At(1, species, 0, 0);
    for (const double depth : {0.5, 2.0, 5.0, 9.0, 11.0}) {
      const double rate =
          (Crown_Outline(tree, depth + 1e-5).radius - Crown_Outline(tree, depth - 1e-5).radius) /
          2e-5;
      EXPECT_NEAR(Crown_Outline(tree, depth).slope, rate, 1e-6) << Species_Name(species);
    }
  }
}

TEST(CrownDepth, ApexLiesOnTheCrown) {
  for (const Species species : kAllSpecies) {
    EXPECT_DOUBLE_EQ(Crown_Depth_At(Tree_At(1, species, 0, 0), 0).value(), 0);
  }
}

TEST(CrownDepth, TurnsTheOutlineOver) {
  for (const Species species : kAllSpecies) {
    const Tree tree = Tree_At(1, species, 0, 0);
    for (const double distance : {0.1, 0.7, 1.6, 2.4}) {
      const double depth = Crown_Depth_At(tree, distance).value();
      EXPECT_NEAR(Crown_Outline(tree, depth).radius, distance, 1e-9) << Species_Name(species);
    }
  }
}

TEST(CrownDepth, NothingBeyondTheRadius) {
  EXPECT_FALSE(Crown_Depth_At(Tree_At(1, Species::Pine, 0, 0), 2.501).has_value());
}

/// Steps of 1 mm along the ray, starting outside, so the first inside point is the crossing.
std::optional<double> March(const Tree& tree, const Ray& ray, double to) {
  for (double t = 0; t <= to; t += 0.001) {
    if (Inside_By_Hand(tree, ray.x + t * ray.u, ray.y + t * ray.v, ray.z + t * ray.w)) return t;
  }
  return std::nullopt;
}

Ray Random_Ray(const Tree& tree, RandomDraws& draws) {
  // Downwards through a point near the crown, from above it.
  const double u = draws.Uniform(-0.9, 0.9), v = draws.Uniform(-0.9, 0.9);
  const double aim_x = tree.X + draws.Uniform(-3, 3), aim_y = tree.Y + draws.Uniform(-3, 3);
  const double drop = draws.Uniform(1, 14);
  return {aim_x - drop * u, aim_y - drop * v, tree.TopZ + 1, u, v, -1};
}

TEST(CrownIntersection, AgreesWithDenseSampling) {
  RandomDraws draws{Stream_Key(7, 1)};
  for (const Species species : kAllSpecies) {
    const Tree tree = Tree_At(1, species, 0, 0);
    int hits = 0;
    for (int i = 0; i < 300; ++i) {
      const Ray ray = Random_Ray(tree, draws);
      const auto marched = March(tree, ray, 14), found = Intersect_Crown(tree, ray, 0, 14);
      if (marched) {
        ++hits;
        ASSERT_TRUE(found.has_value()) << Species_Name(species) << " ray " << i;
        EXPECT_NEAR(*found, *marched, 0.02) << Species_Name(species) << " ray " << i;
      } else if (found) {
        // Within the tolerance of the radius: a line that only touches the crown.
        const double X = ray.x + *found * ray.u, Y = ray.y + *found * ray.v;
        const double depth = tree.TopZ - ray.z + *found;
        EXPECT_NEAR(std::hypot(X - tree.X, Y - tree.Y), Crown_Outline(tree, depth).radius, 2e-4);
      }
    }
    EXPECT_GT(hits, 60);
  }
}

TEST(CrownIntersection, RayFromBelowEntersAtTheBase) {
  const Tree birch = Tree_At(1, Species::Birch, 0, 0);
  const Ray up{birch.X + 1, birch.Y, 150, 0, 0, 1};
  EXPECT_NEAR(Intersect_Crown(birch, up, 0, 30).value(), 8, 1e-9);
}

TEST(CrownIntersection, VerticalRayNextToTheCrownMisses) {
  const Tree pine = Tree_At(1, Species::Pine, 0, 0);
  EXPECT_FALSE(Intersect_Crown(pine, {pine.X + 2.6, pine.Y, 200, 0, 0, -1}, 0, 60).has_value());
}

TEST(CrownIntersection, VerticalRayOverTheApexHitsIt) {
  for (const Species species : kAllSpecies) {
    const Tree tree = Tree_At(1, species, 0, 0);
    EXPECT_NEAR(Intersect_Crown(tree, {tree.X, tree.Y, 200, 0, 0, -1}, 0, 60).value(), 30, 1e-3);
  }
}

TEST(CrownIntersection, CrossingOutsideTheRangeDoesNotCount) {
  const Tree pine = Tree_At(1, Species::Pine, 0, 0);
  const Ray down{pine.X, pine.Y, 200, 0, 0, -1};
  EXPECT_FALSE(Intersect_Crown(pine, down, 0, 29.9).has_value());
  EXPECT_FALSE(Intersect_Crown(pine, down, 45, 60).has_value());
}

TEST(StemIntersection, SlantedRayHitsTheStemAtItsRadius) {
  const Tree pine = Tree_At(1, Species::Pine, 0, 0);
  // One metre east per metre down, meeting the axis 5 m above the ground.
  const Ray ray{pine.X - 10, pine.Y, 165, 1, 0, -1};
  EXPECT_NEAR(Intersect_Stem(pine, ray, 0, 20).value(), 10 - 0.1, 1e-9);
}

TEST(PassesCrown, TestsTheDistanceOfTheLineInPlan) {
  const Tree tree = Tree_At(1, Species::Birch, 0, 0);
  EXPECT_TRUE(Passes_Crown(tree, {tree.X - 9, tree.Y + 2.4, 200, 2, 0, -1}, 4));
  EXPECT_FALSE(Passes_Crown(tree, {tree.X - 9, tree.Y + 2.6, 200, 2, 0, -1}, 4));
  EXPECT_TRUE(Passes_Crown(tree, {tree.X + 2.4, tree.Y, 200, 0, 0, -1}, 0));
  EXPECT_FALSE(Passes_Crown(tree, {tree.X + 2.6, tree.Y, 200, 0, 0, -1}, 0));
}

}  // namespace
}  // namespace sylvomex::demo
