// SPDX-License-Identifier: MIT
#include "closedlib/clusters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "closedlib/index_sort.h"
#include "matching_inputs.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Cluster {
  double weight = 0;
  Point3D sum;
  int members = 0;
};

struct Input {
  std::vector<Point3D> mesh;
  std::vector<float> scores = {0};  // entry 0 is unused
  double distance = 1.5, limit = 0.3;

  void Add(double X, double Y, double Z, double score) {
    mesh.push_back({X, Y, Z});
    scores.push_back(static_cast<float>(score));
  }
};

std::vector<Cluster> Find(const Input& in) {
  std::vector<std::int32_t> index(in.scores.size());
  MYFUNC_INDEXX(in.scores, index);
  std::vector<double> weights(2001, 77);
  std::vector<Point3D> sums(2001);
  std::vector<std::int32_t> members(2001, 77);
  const ScoredMesh points{static_cast<std::int32_t>(in.mesh.size()), index, in.scores, in.mesh};
  const int count = MYFUNC_FINDCLUSTERS(points, in.distance, in.limit, {weights, sums, members});
  EXPECT_EQ(weights[0], 77);
  EXPECT_EQ(members[0], 77);
  std::vector<Cluster> found;
  for (std::size_t k = 1; k <= static_cast<std::size_t>(count); ++k) {
    found.push_back({weights[k], sums[k], members[k]});
  }
  return found;
}

/// The definition, literally: every point is compared with every cluster.
std::vector<Cluster> Find_By_Walking(const Input& in) {
  std::vector<std::int32_t> index(in.scores.size());
  MYFUNC_INDEXX(in.scores, index);
  std::vector<Cluster> clusters;
  for (std::size_t place = in.mesh.size(); place >= 1; --place) {
    const auto entry = static_cast<std::size_t>(index[place]);
    const double weight = static_cast<double>(in.scores[entry]) - 1;
    if (std::isnan(weight)) continue;
    if (!(weight >= in.limit)) break;
    const Point3D& p = in.mesh[entry - 1];
    Cluster* nearest = nullptr;
    double least = in.distance > 0 ? in.distance * in.distance : 0;
    for (Cluster& c : clusters) {
      const double dx = p.X - c.sum.X / c.weight, dy = p.Y - c.sum.Y / c.weight;
      if (dx * dx + dy * dy < least) {
        least = dx * dx + dy * dy;
        nearest = &c;
      }
    }
    if (!nearest) {
      if (clusters.size() == 2000) continue;
      nearest = &clusters.emplace_back();
    }
    nearest->weight += weight;
    nearest->sum.X += weight * p.X;
    nearest->sum.Y += weight * p.Y;
    nearest->sum.Z += weight * p.Z;
    ++nearest->members;
  }
  return clusters;
}

bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

void Expect_As_By_Walking(const Input& in) {
  const std::vector<Cluster> found = Find(in), expected = Find_By_Walking(in);
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t k = 0; k < found.size(); ++k) {
    ASSERT_TRUE(Same(found[k].weight, expected[k].weight)) << k;
    ASSERT_TRUE(Same(found[k].sum.X, expected[k].sum.X)) << k;
    ASSERT_TRUE(Same(found[k].sum.Y, expected[k].sum.Y)) << k;
    ASSERT_TRUE(Same(found[k].sum.Z, expected[k].sum.Z)) << k;
    ASSERT_EQ(found[k].members, expected[k].members) << k;
  }
}

TEST(Clusters, MeanIsWeightedByTheScoreAboveOne) {
  Input in;
  in.Add(10, 20, 30, 1.5);
  in.Add(11, 20, 34, 2.0);
  const auto found = Find(in);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].weight, 1.5);
  EXPECT_EQ(found[0].sum.X / found[0].weight, (0.5 * 10 + 1.0 * 11) / 1.5);
  EXPECT_EQ(found[0].sum.Y / found[0].weight, 20);
  EXPECT_EQ(found[0].sum.Z / found[0].weight, (0.5 * 30 + 1.0 * 34) / 1.5);
  EXPECT_EQ(found[0].members, 2);
}

TEST(Clusters, BestPointStartsTheFirst) {
  Input in;
  in.Add(0, 0, 0, 1.5);
  in.Add(10, 0, 0, 1.75);
  const auto found = Find(in);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].weight, 0.75);
  EXPECT_EQ(found[1].weight, 0.5);
}

TEST(Clusters, HeightDoesNotSeparate) {
  Input in;
  in.Add(0, 0, 0, 2);
  in.Add(0.5, 0.5, 100, 1.5);
  EXPECT_EQ(Find(in).size(), 1U);
}

TEST(Clusters, PointAtTheDistanceStartsItsOwn) {
  Input in;
  in.Add(0, 0, 0, 2);
  in.Add(1.5, 0, 0, 1.5);
  EXPECT_EQ(Find(in).size(), 2U);
  in.distance = 1.5000001;
  EXPECT_EQ(Find(in).size(), 1U);
}

TEST(Clusters, PointAtTheScoreLimitCounts) {
  Input in;
  in.limit = 0.25;
  in.Add(0, 0, 0, 1.25);
  in.Add(5, 0, 0, 1.2499);
  EXPECT_EQ(Find(in).size(), 1U);
}

TEST(Clusters, MeanMovesAndTakesAPointTooFarFromTheFirst) {
  Input in;
  in.Add(0, 0, 0, 2);
  in.Add(1.4, 0, 0, 1.9999);  // mean moves to about 0.7
  in.Add(2.1, 0, 0, 1.9998);  // 2.1 from the first point
  EXPECT_EQ(Find(in).size(), 1U);
}

TEST(Clusters, PointJoinsTheNearestNotTheOldest) {
  Input in;
  in.Add(0, 0, 0, 2);
  in.Add(2, 0, 0, 1.9);
  in.Add(1.25, 0, 0, 1.8);
  const auto found = Find(in);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].members, 1);
  EXPECT_EQ(found[1].members, 2);
}

TEST(Clusters, OlderOfTwoEquallyNearGetsThePoint) {
  for (const bool turned : {false, true}) {
    Input in;
    in.Add(turned ? 2 : 0, 0, 0, 2);
    in.Add(turned ? 0 : 2, 0, 0, 1.9);
    in.Add(1, 0, 0, 1.8);
    const auto found = Find(in);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].members, 2);
    EXPECT_EQ(found[1].members, 1);
  }
}

TEST(Clusters, NothingAboveTheLimitGivesNone) {
  Input in;
  EXPECT_TRUE(Find(in).empty());
  in.Add(0, 0, 0, 1.1);
  EXPECT_TRUE(Find(in).empty());
  in.limit = kNan;
  EXPECT_TRUE(Find(in).empty());
}

TEST(Clusters, CountOfZeroOrLessGivesNone) {
  std::vector<double> weights(2001);
  std::vector<Point3D> sums(2001);
  std::vector<std::int32_t> members(2001);
  EXPECT_EQ(MYFUNC_FINDCLUSTERS({0, {}, {}, {}}, 1.5, 0.3, {weights, sums, members}), 0);
  EXPECT_EQ(MYFUNC_FINDCLUSTERS({-4, {}, {}, {}}, 1.5, 0.3, {weights, sums, members}), 0);
}

TEST(Clusters, DistanceOfZeroLetsNoPointJoin) {
  for (const double distance : {0.0, -1.5, kNan, -kInfinity}) {
    Input in;
    in.distance = distance;
    for (int k = 0; k < 5; ++k) in.Add(3, 4, 5, 1.5);
    EXPECT_EQ(Find(in).size(), 5U) << distance;
  }
}

TEST(Clusters, InfiniteDistanceJoinsAll) {
  Input in;
  in.distance = kInfinity;
  for (int k = 0; k < 50; ++k) in.Add(1e7 * k, -1e6 * k, 0, 1.5);
  EXPECT_EQ(Find(in).size(), 1U);
}

TEST(Clusters, AtMostTwoThousandAndLaterStartersAreSkipped) {
  Input in;
  for (int k = 0; k < 2300; ++k) in.Add(2515000 + 3.0 * (k % 60), 6859000 + 3.0 * (k / 60), 0, 2);
  for (int k = 0; k < 2300; ++k) in.Add(2515000 + 3.0 * (k % 60), 6859000 + 3.0 * (k / 60), 0, 1.5);
  const auto found = Find(in);
  ASSERT_EQ(found.size(), 2000U);
  // Equal scores are visited from the last: points 300 to 2299 start clusters and get their second
  // member.
  for (const Cluster& c : found) EXPECT_EQ(c.members, 2);
  EXPECT_EQ(found[0].sum.Y / found[0].weight, 6859000 + 3.0 * (2299 / 60));
  EXPECT_EQ(found[1999].sum.Y / found[1999].weight, 6859000 + 3.0 * (300 / 60));
}

TEST(Clusters, NaNScoresAreSkipped) {
  Input in;
  in.Add(0, 0, 0, kNan);
  in.Add(9, 0, 0, 1.5);
  const auto found = Find(in);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].sum.X / found[0].weight, 9);
}

TEST(Clusters, IndexOutsideTheMeshIsRejected) {
  const std::vector<Point3D> mesh(2);
  const std::vector<float> scores = {0, 2, 2};
  std::vector<double> weights(2001);
  std::vector<Point3D> sums(2001);
  std::vector<std::int32_t> members(2001);
  for (const std::int32_t bad : {0, 3, -1, 2147483647}) {
    const std::vector<std::int32_t> index = {0, bad, 1};
    EXPECT_THROW(MYFUNC_FINDCLUSTERS({2, index, scores, mesh}, 1.5, 0.3, {weights, sums, members}),
                 RunTimeError)
        << bad;
  }
}

TEST(Clusters, ShortSpansAreRejected) {
  const std::vector<Point3D> mesh(2);
  const std::vector<float> scores = {0, 2, 2};
  const std::vector<std::int32_t> index = {0, 1, 2};
  std::vector<double> weights(2001);
  std::vector<Point3D> sums(2001);
  std::vector<std::int32_t> members(2001);
  const auto find = [&](std::int32_t count, std::size_t room) {
    return MYFUNC_FINDCLUSTERS({count, index, scores, mesh}, 1.5, 0.3,
                               {std::span(weights).first(room), sums, members});
  };
  EXPECT_EQ(find(2, 2001), 1);
  EXPECT_THROW(find(3, 2001), RunTimeError);
  EXPECT_THROW(find(2, 2000), RunTimeError);
}

struct Spread {
  double side, distance, limit;
  int points;
};

Input Random_Input(const Spread& spread, std::uint32_t seed, double X, double Y) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> away(-spread.side / 2, spread.side / 2), score(0, 2);
  Input in;
  in.distance = spread.distance;
  in.limit = spread.limit;
  for (int k = 0; k < spread.points; ++k) {
    in.Add(X + away(random), Y + away(random), 20 + away(random), score(random));
  }
  return in;
}

TEST(Clusters, RandomPointsClusterAsByLinearSearch) {
  const Spread spreads[] = {{50, 1.5, 0.3, 6000},   // a plot
                            {500, 1.5, 0, 6000},    // above 2000 clusters, cell numbers wrap around
                            {3, 1.5, 0, 3000},      // few
                            {1, 0.04, 0, 6000},     // narrow
                            {30, 1e-4, 0, 3000},    // cells wider than the distance
                            {1e5, 40, 0, 3000},     // far apart
                            {50, 1e9, 0, 2000},     // one cluster
                            {0, 1.5, 0, 500},       // all at one place
                            {50, 1.5, -0.5, 3000},  // weights below 0
                            {50, 1.5, -1, 3000}};
  std::uint32_t seed = 1;
  for (const Spread& spread : spreads) {
    SCOPED_TRACE(seed);
    Expect_As_By_Walking(Random_Input(spread, seed++, 2515000, 6859000));
    Expect_As_By_Walking(Random_Input(spread, seed++, 0, 0));
  }
}

/// On a half-metre grid many means are equally near.
TEST(Clusters, GridPointsWithEqualScoresClusterAsByLinearSearch) {
  std::mt19937 random(77);
  Input in;
  for (int k = 0; k < 8000; ++k) {
    in.Add(0.5 * static_cast<double>(random() % 80), 0.5 * static_cast<double>(random() % 80), 1,
           1 + 0.25 * static_cast<double>(random() % 5));
  }
  in.limit = 0.25;
  Expect_As_By_Walking(in);
}

TEST(Clusters, CrowdedCellClustersAsByLinearSearch) {
  // Means drift together from a ring: first its points far out, then heavy points that pull each
  // cluster inwards, more clusters than a list holds.
  Input in;
  in.distance = 1;
  in.limit = -1;
  for (int k = 0; k < 60; ++k) {
    const double t = 2 * 3.14159265358979 * k / 60;
    in.Add(11 * std::cos(t), 11 * std::sin(t), 0, 2 - 1e-4 * k);
    for (int step = 1; step < 400; ++step) {
      const double r = 11 * std::pow(0.985, step);
      in.Add(r * std::cos(t), r * std::sin(t), 0, 1.9 - 1e-3 * step);
    }
  }
  Expect_As_By_Walking(in);
}

TEST(Clusters, NaNAndInfinitePointsClusterAsByLinearSearch) {
  Input in = Random_Input({20, 1.5, 0, 500}, 5, 0, 0);
  const double bad[] = {kNan, kInfinity, -kInfinity, 1e300, -1e300, 1e15};
  for (std::size_t k = 0; k < 120; ++k) {
    Point3D& p = in.mesh[4 * k];
    (k % 2 ? p.X : p.Y) = bad[k % 6];
  }
  Expect_As_By_Walking(in);
}

}  // namespace
}  // namespace sylvomex
