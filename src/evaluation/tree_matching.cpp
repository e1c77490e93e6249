// SPDX-License-Identifier: MIT
#include "evaluation/tree_matching.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "platform/rounding.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

struct Pair {
  double distance = 0;
  int tree = 0;
  int cluster = 0;

  bool operator<(const Pair& other) const {
    return std::tie(distance, tree, cluster) < std::tie(other.distance, other.tree, other.cluster);
  }
};

double Distance(const PlanPosition& a, const PlanPosition& b) {
  return std::hypot(a.X - b.X, a.Y - b.Y);
}

std::vector<Pair> Pairs_Within(std::span<const PlanPosition> trees,
                               std::span<const PlanPosition> clusters, double limit) {
  std::vector<Pair> pairs;
  WorkMeter meter(static_cast<double>(trees.size()));
  for (std::size_t t = 0; t < trees.size(); ++t) {
    meter.Step();
    for (std::size_t c = 0; c < clusters.size(); ++c) {
      const double distance = Distance(trees[t], clusters[c]);
      if (distance <= limit) {
        pairs.push_back({distance, static_cast<int>(t), static_cast<int>(c)});
      }
    }
  }
  std::sort(pairs.begin(), pairs.end());
  return pairs;
}

ReferenceTreeRecord Record_Of(const FieldTree& tree) {
  ReferenceTreeRecord record;
  record.TreeDiameter = tree.Dbh;
  record.TreeHeight = tree.TreeHeight;
  record.TreeX = tree.MapX;
  record.TreeY = tree.MapY;
  record.TreeZ = tree.TopZ;
  record.BaseZ = tree.BaseZ;
  record.TreeId = tree.TreeId;
  return record;
}

void Give_Cluster(ReferenceTreeRecord& record, int cluster, const Point3D& top) {
  record.Cluster = cluster;
  record.ClusterX = top.X;
  record.ClusterY = top.Y;
  record.ClusterZ = top.Z;
}

/// Lists the trees of a class, those with a cluster or those without, and returns their number.
std::int16_t List_Trees(EvaluationState& state, bool with_cluster) {
  const std::size_t before = state.MatchIndex.size();
  std::int32_t number = 0;
  for (const ReferenceTreeRecord& tree : state.ReferenceTree) {
    ++number;
    if ((tree.Cluster != 0) == with_cluster) state.MatchIndex.push_back(number);
  }
  return To_Int16(static_cast<double>(state.MatchIndex.size() - before));
}

void List_Commissions(EvaluationState& state, std::span<const Point3D> clusters) {
  std::vector<bool> taken(clusters.size() + 1);
  for (const ReferenceTreeRecord& tree : state.ReferenceTree) {
    taken[static_cast<std::size_t>(tree.Cluster)] = true;
  }
  for (std::size_t number = 1; number <= clusters.size(); ++number) {
    if (taken[number]) continue;
    state.MatchIndex.push_back(static_cast<std::int32_t>(number));
    state.CommissionTops.push_back(clusters[number - 1]);
  }
  state.CommissionCount = To_Int16(static_cast<double>(state.CommissionTops.size()));
}

/// The unmatched cluster nearest to a tree in plan within the limit, 0 for none.
std::int32_t Commission_Near(const EvaluationState& state, const ReferenceTreeRecord& tree) {
  const std::size_t first = state.MatchIndex.size() - state.CommissionTops.size();
  std::int32_t nearest = 0;
  double least = state.MatchDistance;
  for (std::size_t i = 0; i < state.CommissionTops.size(); ++i) {
    const Point3D& top = state.CommissionTops[i];
    const double distance = Distance({tree.TreeX, tree.TreeY}, {top.X, top.Y});
    if (distance < least || (nearest == 0 && distance == least)) {
      nearest = state.MatchIndex[first + i];
      least = distance;
    }
  }
  return nearest;
}

}  // namespace

std::vector<int> Match_Nearest_First(std::span<const PlanPosition> trees,
                                     std::span<const PlanPosition> clusters, double limit) {
  std::vector<int> partner(trees.size(), -1);
  std::vector<bool> taken(clusters.size());
  for (const Pair& pair : Pairs_Within(trees, clusters, limit)) {
    int& cluster = partner[static_cast<std::size_t>(pair.tree)];
    if (cluster >= 0 || taken[static_cast<std::size_t>(pair.cluster)]) continue;
    cluster = pair.cluster;
    taken[static_cast<std::size_t>(pair.cluster)] = true;
  }
  return partner;
}

EvaluationState Evaluate_Matches(std::span<const FieldTree> trees,
                                 std::span<const Point3D> clusters, double limit) {
  EvaluationState state;
  state.MatchDistance = limit;
  std::vector<PlanPosition> tree_places, cluster_places;
  for (const FieldTree& tree : trees) tree_places.push_back({tree.MapX, tree.MapY});
  for (const Point3D& top : clusters) cluster_places.push_back({top.X, top.Y});
  const std::vector<int> partner = Match_Nearest_First(tree_places, cluster_places, limit);
  for (std::size_t t = 0; t < trees.size(); ++t) {
    state.ReferenceTree.push_back(Record_Of(trees[t]));
    if (partner[t] < 0) continue;
    Give_Cluster(state.ReferenceTree.back(), partner[t] + 1,
                 clusters[static_cast<std::size_t>(partner[t])]);
  }
  state.MatchCount = List_Trees(state, true);
  state.OmittedCount = List_Trees(state, false);
  List_Commissions(state, clusters);
  WorkMeter meter(static_cast<double>(state.ReferenceTree.size()));
  for (ReferenceTreeRecord& tree : state.ReferenceTree) {
    tree.OtherCluster = Commission_Near(state, tree);
    meter.Step();
  }
  return state;
}

}  // namespace sylvomex
