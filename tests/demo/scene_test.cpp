// SPDX-License-Identifier: MIT
#include "demo/scene/scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "demo/scene/counter_random.h"
#include "demo/scene/value_noise.h"
#include "platform/run_time_error.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

const Scene& Site() {
  static const Scene scene = Build_Scene({});
  return scene;
}

TEST(Ground, StaysWithin140To180MetresForAnySeed) {
  for (const std::uint64_t seed : {1U, 2U, 20261121U}) {
    const Ground ground = Make_Ground(seed);
    const auto [low, high] = std::minmax_element(ground.heights.begin(), ground.heights.end());
    EXPECT_GE(*low, 140);
    EXPECT_LE(*high, 180);
    EXPECT_GT(*high - *low, 8) << "rolling, not flat";
  }
}

TEST(Ground, IsBilinearBetweenNodes) {
  Ground ground;
  ground.side = 2;
  ground.heights = {10, 12, 14, 20};
  EXPECT_NEAR(Ground_Height(ground, 0.5, 0.5), 14, 1e-9);
  EXPECT_NEAR(Ground_Height(ground, 0.25, 0), 10.5, 1e-9);
  const GroundSample sample = Sample_Ground(ground, 0.5, 0.5);
  EXPECT_NEAR(sample.slope_x, 4, 1e-9);
  EXPECT_NEAR(sample.slope_y, 6, 1e-9);
}

TEST(Ground, ContinuesLevelBeyondItsEdge) {
  Ground ground;
  ground.side = 2;
  ground.heights = {10, 12, 14, 20};
  EXPECT_NEAR(Ground_Height(ground, -50, 0), 10, 1e-9);
  EXPECT_NEAR(Ground_Height(ground, 50, 50), 20, 1e-3);
}

TEST(Stand, HoldsNineHundredTreesOfThreeSpecies) {
  EXPECT_EQ(Site().trees.size(), 900U);
  const auto count = [](Species species) {
    return std::count_if(Site().trees.begin(), Site().trees.end(),
                         [species](const Tree& tree) { return tree.species == species; });
  };
  EXPECT_NEAR(static_cast<double>(count(Species::Pine)), 405, 60);
  EXPECT_NEAR(static_cast<double>(count(Species::Spruce)), 315, 60);
  EXPECT_NEAR(static_cast<double>(count(Species::Birch)), 180, 60);
}

TEST(Stand, HeightsAreEightTo28MetresAndMostTreesDominant) {
  int dominant = 0;
  for (const Tree& tree : Site().trees) {
    EXPECT_GE(tree.Height(), 8 - 1e-9);
    EXPECT_LE(tree.Height(), 28 + 1e-9);
    dominant += tree.Height() > 18 ? 1 : 0;
  }
  EXPECT_GT(dominant, 540);
}

TEST(Stand, TreesStandOnTheGroundInsideTheSquareWithIdsFromOne) {
  int id = 0;
  for (const Tree& tree : Site().trees) {
    EXPECT_EQ(tree.id, ++id);
    EXPECT_DOUBLE_EQ(tree.GroundZ, Ground_Height(Site(), tree.X, tree.Y));
    EXPECT_GE(tree.X - tree.crown_radius, kForestWest - 1e-6);
    EXPECT_LE(tree.X + tree.crown_radius, kForestWest + kForestSide + 1e-6);
    EXPECT_GE(tree.Y - tree.crown_radius, kForestSouth - 1e-6);
    EXPECT_LE(tree.Y + tree.crown_radius, kForestSouth + kForestSide + 1e-6);
    EXPECT_LT(tree.crown_length, tree.Height());
  }
}

TEST(Stand, NoTwoCrownsOverlapInPlan) {
  const auto& trees = Site().trees;
  for (std::size_t i = 0; i < trees.size(); ++i) {
    for (std::size_t j = i + 1; j < trees.size(); ++j) {
      const double distance = std::hypot(trees[i].X - trees[j].X, trees[i].Y - trees[j].Y);
      ASSERT_GE(distance, trees[i].crown_radius + trees[j].crown_radius - 1e-9);
    }
  }
}

TEST(Stand, DensityAndSpeciesMixFollowTheSettings) {
  SiteSettings settings;
  settings.stems_per_hectare = 50;
  settings.pine_share = settings.birch_share = 0;
  const Scene scene = Build_Scene(settings);
  EXPECT_EQ(scene.trees.size(), 450U);
  for (const Tree& tree : scene.trees) EXPECT_EQ(tree.species, Species::Spruce);
}

TEST(Stand, AnotherSeedIsAnotherForest) {
  SiteSettings settings;
  settings.seed = 5;
  EXPECT_NE(Build_Scene(settings).trees[0].X, Site().trees[0].X);
}

TEST(CanopyHeight, IsTheTopAtTheApexAndTheGroundBetweenTrees) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 100, 100)});
  EXPECT_DOUBLE_EQ(Canopy_Height(scene, kForestWest + 100, kForestSouth + 100), 170);
  // At half the radius, a paraboloid of 12 m is lower by a quarter of its length.
  EXPECT_NEAR(Canopy_Height(scene, kForestWest + 101.25, kForestSouth + 100), 167, 1e-9);
  EXPECT_DOUBLE_EQ(Canopy_Height(scene, kForestWest + 102.6, kForestSouth + 100), 150);
  EXPECT_DOUBLE_EQ(Canopy_Height(scene, kForestWest - 30, kForestSouth - 30), 150);
}

TEST(CanopyHeight, TakesTheHigherOfTwoCrownsOverTheSamePlace) {
  Tree low = Tree_At(2, Species::Birch, 101, 100);
  low.TopZ = 165;
  const Scene scene = Scene_Of({low, Tree_At(1, Species::Birch, 100, 100)});
  EXPECT_DOUBLE_EQ(Canopy_Height(scene, kForestWest + 100, kForestSouth + 100), 170);
}

TEST(TreeGrid, ListsEveryTreeInEveryCellUnderItsCrown) {
  for (std::size_t i = 0; i < Site().trees.size(); i += 17) {
    const Tree& tree = Site().trees[i];
    for (const double dx : {-0.99, 0.0, 0.99}) {
      const int cell = Cell_At(Site().grid, tree.X + dx * tree.crown_radius, tree.Y);
      ASSERT_GE(cell, 0);
      const auto items = Trees_Of_Cell(Site().grid, cell);
      EXPECT_NE(std::find(items.begin(), items.end(), static_cast<int>(i)), items.end());
    }
  }
}

TEST(WalkCells, VisitsTheCellsUnderTheRayInOrder) {
  const TreeGrid& grid = Site().grid;
  RandomDraws draws{Stream_Key(3, 3)};
  for (int i = 0; i < 50; ++i) {
    const Ray ray{kForestWest + draws.Uniform(-40, 340),
                  kForestSouth + draws.Uniform(-40, 340),
                  300,
                  draws.Uniform(-1, 1),
                  draws.Uniform(-1, 1),
                  -1};
    std::vector<int> sampled;
    for (double t = 0; t <= 90; t += 0.002) {
      const int cell = Cell_At(grid, ray.x + t * ray.u, ray.y + t * ray.v);
      if (cell >= 0 && (sampled.empty() || sampled.back() != cell)) sampled.push_back(cell);
    }
    std::vector<int> walked;
    Walk_Cells(grid, ray, 0, 90, [&](int cell, double enter, double leave) {
      if (leave - enter > 0.005) walked.push_back(cell);
      return false;
    });
    // Cells that the ray only touches may be missed by the sampling or excluded above.
    for (const int cell : walked) {
      EXPECT_NE(std::find(sampled.begin(), sampled.end(), cell), sampled.end());
    }
    EXPECT_NEAR(static_cast<double>(walked.size()), static_cast<double>(sampled.size()), 3);
  }
}

TEST(WalkCells, RayThatLeavesTheGridSidewaysVisitsNothing) {
  int visits = 0;
  Walk_Cells(Site().grid, {kForestWest - 10, kForestSouth + 50, 300, 0, 1, -1}, 0, 100,
             [&visits](int, double, double) {
               ++visits;
               return false;
             });
  EXPECT_EQ(visits, 0);
}

TEST(Sun, IsAtItsAzimuthFromNorthAndItsElevation) {
  // cos 38 sin 165, cos 38 cos 165, sin 38.
  EXPECT_NEAR(Site().sun.x, 0.20395, 1e-5);
  EXPECT_NEAR(Site().sun.y, -0.76116, 1e-5);
  EXPECT_NEAR(Site().sun.z, 0.61566, 1e-5);
}

TEST(Settings, AValueOutOfItsRangeIsNamed) {
  SiteSettings settings;
  settings.sun_elevation_deg = 5;
  try {
    Build_Scene(settings);
    FAIL() << "accepted";
  } catch (const RunTimeError& error) {
    const std::string text = error.what();
    EXPECT_NE(text.find("sun elevation is 5"), std::string::npos) << text;
    EXPECT_NE(text.find("20 to 90"), std::string::npos) << text;
  }
}

TEST(Settings, SharesThatAreAllZeroAreRejected) {
  SiteSettings settings;
  settings.pine_share = settings.spruce_share = settings.birch_share = 0;
  EXPECT_THROW(Build_Scene(settings), RunTimeError);
}

TEST(CentreTree, IsTheNearestTallOne) {
  Tree small = Tree_At(1, Species::Pine, 150, 150);
  small.TopZ = 160;
  const Scene scene =
      Scene_Of({small, Tree_At(2, Species::Pine, 200, 150), Tree_At(3, Species::Pine, 140, 150)});
  EXPECT_EQ(Centre_Tree(scene, 18), 2U);
  EXPECT_EQ(Centre_Tree(scene, 5), 0U);
  EXPECT_THROW(Centre_Tree(scene, 25), RunTimeError);
}

TEST(NormalQuantile, MatchesTabulatedValues) {
  EXPECT_NEAR(Normal_Quantile(0.5), 0, 1e-9);
  EXPECT_NEAR(Normal_Quantile(0.975), 1.959963985, 1e-6);
  EXPECT_NEAR(Normal_Quantile(0.05), -1.644853627, 1e-6);
  EXPECT_NEAR(Normal_Quantile(0.0001), -3.719016485, 1e-6);
  EXPECT_NEAR(Normal_Quantile(1 - 1e-12), 7.034484, 1e-3);
}

TEST(RandomDraws, AreUniformAndDependOnTheKeyAlone) {
  RandomDraws a{Stream_Key(1, 1)}, b{Stream_Key(1, 1)}, c{Stream_Key(1, 2)};
  double sum = 0;
  bool differs = false;
  for (int i = 0; i < 10000; ++i) {
    const double value = a.Uniform();
    ASSERT_GE(value, 0);
    ASSERT_LT(value, 1);
    EXPECT_EQ(value, b.Uniform());
    differs = differs || value != c.Uniform();
    sum += value;
  }
  EXPECT_NEAR(sum / 10000, 0.5, 0.015);
  EXPECT_TRUE(differs);
}

TEST(ValueNoise, IsSmoothAndWithinZeroToOne) {
  double before = Value_Noise(9, -3, 2.5);
  for (double x = -3; x < 3; x += 0.001) {
    const double value = Value_Noise(9, x, 2.5);
    ASSERT_GE(value, 0);
    ASSERT_LE(value, 1);
    ASSERT_LT(std::abs(value - before), 0.01);
    before = value;
  }
}

}  // namespace
}  // namespace sylvomex::demo
