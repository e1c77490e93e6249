// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "matching/matching_state.h"
#include "platform/point3d.h"

namespace sylvomex {

/// Weighted mean of a cluster's points, metres; clusters are counted from 1.
/// RunTimeError(DivisionByZero) naming the cluster when its weight is 0.
Point3D Cluster_Position(const Point3D& sum, double weight, int cluster);
Point3D Cluster_Position(const MatchingState& state, int cluster);

/// The positions of all clusters of the last search; cluster i at index i - 1.
std::vector<Point3D> Cluster_Positions(const MatchingState& state);

}  // namespace sylvomex
