// SPDX-License-Identifier: MIT
#include "matching/cluster_position.h"

#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {

Point3D Cluster_Position(const Point3D& sum, double weight, int cluster) {
  if (weight == 0) {
    throw RunTimeError(Failure::DivisionByZero,
                       "cluster " + std::to_string(cluster) + " has no weight");
  }
  return {sum.X / weight, sum.Y / weight, sum.Z / weight};
}

Point3D Cluster_Position(const MatchingState& state, int cluster) {
  return Cluster_Position(state.ClusterSum(cluster), state.ClusterWeight(cluster), cluster);
}

std::vector<Point3D> Cluster_Positions(const MatchingState& state) {
  std::vector<Point3D> positions;
  for (int i = 1; i <= state.ClusterCount; ++i) positions.push_back(Cluster_Position(state, i));
  return positions;
}

}  // namespace sylvomex
