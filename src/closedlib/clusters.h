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
  std::span<const std::int32_t> index;  // entries 1 to count, as written by MYFUNC_INDEXX
  std::span<const float> scores;        // likewise
  std::span<const Point3D> mesh;
};

/// Capacity for 2001 clusters each. Entries 1 to the number of clusters are written, entry 0 is
/// unused.
struct ClusterTables {
  std::span<double> weights;
  std::span<Point3D> sums;  // weighted X, Y, Z
  std::span<std::int32_t> members;
};

/// Groups sorted mesh points into clusters, best point first, while S - 1 >= score_limit. A point
/// joins the nearest cluster whose current weighted mean is nearer than distance horizontally
/// (metres; of two equally near, the older one), otherwise it starts one; its weight is S - 1. At
/// most 2000 clusters; points that would start another are skipped, and so are NaN scores, which
/// sort above all others. With a distance of 0 or less, or NaN, no point joins.
///
/// Returns the number of clusters, 0 for a count of 0 or less. RunTimeError(SubscriptOutOfRange)
/// when a span is too short and for an index entry outside the mesh.
int MYFUNC_FINDCLUSTERS(const ScoredMesh& points, double distance, double score_limit,
                        const ClusterTables& tables);

}  // namespace sylvomex
