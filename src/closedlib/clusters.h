// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "platform/point3d.h"

namespace sylvomex {

inline constexpr int kMostClusters = 2000;

/// Mesh points in the order of their scores; point j of the mesh has score entry j + 1.
struct ScoredMesh {
  std::int32_t count = 0;
  std::span<const std::int32_t> index;  // entries 1 to count, as MYFUNC_INDEXX leaves them
  std::span<const float> scores;        // likewise
  std::span<const Point3D> mesh;
};

/// Room for 2001 clusters each. Entries 1 to the number of clusters are written, entry 0 is free.
struct ClusterTables {
  std::span<double> weights;
  std::span<Point3D> sums;  // weighted X, Y, Z
  std::span<std::int32_t> members;
};

/// Groups sorted mesh points into clusters, best point first, while S - 1 >= score_limit. A point
/// joins the nearest cluster whose present weighted mean lies nearer than distance horizontally
/// (metres; the older one of two equally near), else starts one; its weight is S - 1. At most
/// 2000 clusters; later starters are passed over. NaN scores, which sort above all, are
/// passed over too. With a distance of 0 or less, or NaN, no point joins.
///
/// Returns the number of clusters, 0 for a count of 0 or less. RunTimeError(SubscriptOutOfRange)
/// when a span is too short and for an index entry that names no mesh point.
int MYFUNC_FINDCLUSTERS(const ScoredMesh& points, double distance, double score_limit,
                        const ClusterTables& tables);

}  // namespace sylvomex
