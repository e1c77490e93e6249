// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "closedlib/back_projection.h"

namespace sylvomex {

inline constexpr int kMostClusters = 2000;

/// Groups sorted mesh points into clusters, best point first, while S - 1 >= score_limit. A point
/// joins the nearest cluster whose present weighted mean lies nearer than distance horizontally
/// (metres; the older one of two equally near), else starts one; its weight is S - 1. At most
/// 2000 clusters; later starters are passed over. NaN scores, which sort above all, are
/// passed over too. With a distance of 0 or less, or NaN, no point joins.
///
/// index, scores: entries 1 to count, as MYFUNC_INDEXX leaves them; point j of the mesh has
/// score entry j + 1. weights, sums (weighted X, Y, Z), members (number of points): entries 1 to
/// the result are written, entry 0 is free; room for 2001 each. Returns the number of clusters,
/// 0 for a count of 0 or less. RunTimeError(SubscriptOutOfRange) when a span is too short and
/// for an index entry that names no mesh point.
int MYFUNC_FINDCLUSTERS(std::int32_t count, double distance, double score_limit,
                        std::span<const std::int32_t> index, std::span<const float> scores,
                        std::span<const MeshPoint> mesh, std::span<double> weights,
                        std::span<MeshPoint> sums, std::span<std::int32_t> members);

}  // namespace sylvomex
