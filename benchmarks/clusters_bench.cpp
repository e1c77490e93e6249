// SPDX-License-Identifier: MIT
// Clusters of 500,000 sorted mesh points, all above the limit. Goal on the reference machine:
// 10 ms. Peers with the same rule: a linear search over all clusters and, where Boost is
// installed, its R-tree of the current means.
#include <benchmark/benchmark.h>

#include <vector>

#include "closedlib/clusters.h"
#include "closedlib/index_sort.h"
#include "matching_inputs.h"
#ifdef SYLVOMEX_BENCH_BOOST
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <iterator>
#endif

namespace sylvomex {
namespace {

constexpr std::int32_t kPoints = 500000;
constexpr double kDistance = 1.5;

struct Input {
  Input()
      : mesh(bench::On_Huge_Pages(bench::Mesh(kPoints))),
        scores(bench::Scores(kPoints)),
        index(scores.size()) {
    for (float& s : scores) s = 1 + s / 2;
    MYFUNC_INDEXX(scores, index);
  }

  HugePageVector<Point3D> mesh;
  std::vector<float> scores;
  std::vector<std::int32_t> index;
};

void Find_Clusters(benchmark::State& state) {
  const Input in;
  std::vector<double> weights(kMostClusters + 1);
  std::vector<Point3D> sums(kMostClusters + 1);
  std::vector<std::int32_t> members(kMostClusters + 1);
  int count = 0;
  for (auto _ : state) {
    count = MYFUNC_FINDCLUSTERS({kPoints, in.index, in.scores, in.mesh}, kDistance, 0,
                                {weights, sums, members});
  }
  state.counters["clusters"] = count;
}
BENCHMARK(Find_Clusters)->Unit(benchmark::kMillisecond);

struct Cluster {
  double weight = 0, sum_x = 0, sum_y = 0, X = 0, Y = 0;

  void Add(const Point3D& p, double w) {
    weight += w;
    sum_x += w * p.X;
    sum_y += w * p.Y;
    X = sum_x / weight;
    Y = sum_y / weight;
  }
};

/// Calls take(point, weight) from the best point down.
template <class Take>
void Walk_Points(const Input& in, const Take& take) {
  for (std::size_t place = kPoints; place >= 1; --place) {
    const auto entry = static_cast<std::size_t>(in.index[place]);
    take(in.mesh[entry - 1], static_cast<double>(in.scores[entry]) - 1);
  }
}

void Walk_Over_Clusters(benchmark::State& state) {
  const Input in;
  std::vector<Cluster> clusters;
  for (auto _ : state) {
    clusters.clear();
    Walk_Points(in, [&](const Point3D& p, double weight) {
      double least = kDistance * kDistance;
      Cluster* nearest = nullptr;
      for (Cluster& c : clusters) {
        const double dx = p.X - c.X, dy = p.Y - c.Y;
        if (dx * dx + dy * dy >= least) continue;
        least = dx * dx + dy * dy;
        nearest = &c;
      }
      if (!nearest) nearest = &clusters.emplace_back();
      nearest->Add(p, weight);
    });
  }
  state.counters["clusters"] = static_cast<double>(clusters.size());
}
BENCHMARK(Walk_Over_Clusters)->Unit(benchmark::kMillisecond)->Iterations(1);

#ifdef SYLVOMEX_BENCH_BOOST
void Boost_Rtree(benchmark::State& state) {
  namespace geometry = boost::geometry;
  using Place = geometry::model::point<double, 2, geometry::cs::cartesian>;
  using Mean = std::pair<Place, std::size_t>;
  const Input in;
  std::vector<Cluster> clusters;
  for (auto _ : state) {
    clusters.clear();
    geometry::index::rtree<Mean, geometry::index::quadratic<16>> tree;
    std::vector<Mean> found;
    Walk_Points(in, [&](const Point3D& p, double weight) {
      found.clear();
      const Place place(p.X, p.Y);
      tree.query(geometry::index::nearest(place, 1), std::back_inserter(found));
      std::size_t at = clusters.size();
      if (!found.empty() && geometry::distance(found[0].first, place) < kDistance) {
        at = found[0].second;
        tree.remove(found[0]);
      } else {
        clusters.emplace_back();
      }
      clusters[at].Add(p, weight);
      tree.insert({Place(clusters[at].X, clusters[at].Y), at});
    });
  }
  state.counters["clusters"] = static_cast<double>(clusters.size());
}
BENCHMARK(Boost_Rtree)->Unit(benchmark::kMillisecond)->Iterations(1);
#endif

}  // namespace
}  // namespace sylvomex
