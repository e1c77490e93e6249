// SPDX-License-Identifier: MIT
#include "closedlib/cluster_grid.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace sylvomex {
namespace {

/// The grid together with the means that it should contain.
class GridAndMeans {
 public:
  explicit GridAndMeans(double distance) : grid_(distance), limit_(distance * distance) {}

  void Add(double X, double Y) {
    grid_.Add(X, Y);
    means_.push_back({X, Y});
  }
  void Move(int cluster, double X, double Y) {
    grid_.Move(cluster, X, Y);
    means_[static_cast<std::size_t>(cluster)] = {X, Y};
  }
  void Expect_Nearest(double X, double Y) const {
    int nearest = ClusterGrid::kNone;
    double least = limit_;
    for (std::size_t k = 0; k < means_.size(); ++k) {
      const double dx = X - means_[k].X, dy = Y - means_[k].Y;
      if (dx * dx + dy * dy >= least || std::isnan(dx) || std::isnan(dy)) continue;
      least = dx * dx + dy * dy;
      nearest = static_cast<int>(k);
    }
    ASSERT_EQ(grid_.Nearest(X, Y), nearest) << X << ", " << Y;
  }

 private:
  struct Mean {
    double X, Y;
  };
  ClusterGrid grid_;
  double limit_;
  std::vector<Mean> means_;
};

TEST(ClusterGrid, EmptyGridFindsNone) {
  const ClusterGrid grid(1.5);
  EXPECT_EQ(grid.Nearest(2515000, 6859000), ClusterGrid::kNone);
}

TEST(ClusterGrid, FindsTheOldestOfManyInOnePlace) {
  GridAndMeans both(1.5);
  for (int k = 0; k < 100; ++k) {
    both.Add(7, 8);
    both.Expect_Nearest(7, 8);
    both.Expect_Nearest(8, 9);
  }
}

TEST(ClusterGrid, CrowdThatDispersesIsStillFound) {
  GridAndMeans both(1.5);
  for (int k = 0; k < 40; ++k) both.Add(0, 0);
  for (int k = 0; k < 40; ++k) {
    both.Move(k, 5.0 * k, -3.0 * k);
    both.Expect_Nearest(0, 0.5);
    both.Expect_Nearest(5.0 * k, -3.0 * k + 1.4);
  }
}

TEST(ClusterGrid, NaNMeanIsNotFoundUntilItIsFiniteAgain) {
  GridAndMeans both(1.5);
  both.Add(1, 1);
  for (const double bad : {std::nan(""), std::numeric_limits<double>::infinity()}) {
    both.Move(0, bad, 1);
    both.Expect_Nearest(1, 1);
    both.Move(0, 1, 2);
    both.Expect_Nearest(1, 1);
  }
}

TEST(ClusterGrid, RandomMovesKeepEveryMeanFound) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> away(-20, 20), step(-2, 2);
  for (const double distance : {0.5, 1.5, 30.0}) {
    GridAndMeans both(distance);
    std::vector<std::array<double, 2>> at;
    for (int k = 0; k < 400; ++k) {
      at.push_back({away(random), away(random)});
      both.Add(at.back()[0], at.back()[1]);
      const auto moved = static_cast<int>(random() % at.size());
      auto& mean = at[static_cast<std::size_t>(moved)];
      mean = {mean[0] + step(random), mean[1] + step(random)};
      both.Move(moved, mean[0], mean[1]);
      for (int q = 0; q < 10; ++q) both.Expect_Nearest(away(random), away(random));
    }
  }
}

}  // namespace
}  // namespace sylvomex
