// SPDX-License-Identifier: MIT
#include "closedlib/clusters.h"

#include <hwy/base.h>

#include <cmath>
#include <string>

#include "closedlib/argument_room.h"
#include "closedlib/cluster_grid.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr int kPointsOfAStep = 65536;   // between two looks at the work
constexpr std::int32_t kFarAhead = 24;  // points whose records are prefetched
constexpr std::int32_t kNextAhead = 6;  // points whose cell is prefetched

constexpr const char* kRoutine = "clusters";

/// The sorted points, visited from the last entry to the first.
class SortedPoints {
 public:
  explicit SortedPoints(const ScoredMesh& points)
      : index_(points.index), scores_(points.scores), mesh_(points.mesh) {}

  /// Score entry of the point at a place of the index.
  [[nodiscard]] std::size_t Entry(std::int32_t place) const {
    const std::int32_t entry = index_[static_cast<std::size_t>(place)];
    if (!Has(entry)) {
      Refuse_Argument(kRoutine, "the index names point " + std::to_string(entry) + " of " +
                                    std::to_string(mesh_.size()));
    }
    return static_cast<std::size_t>(entry);
  }

  [[nodiscard]] double Weight(std::size_t entry) const {
    return static_cast<double>(scores_[entry]) - 1;
  }
  [[nodiscard]] const Point3D& Point(std::size_t entry) const { return mesh_[entry - 1]; }

  // Force-inlined: the compiler would remove a call of a function that only prefetches as having no
  // effect.
  HWY_INLINE void Prefetch_Ahead(std::int32_t place, const ClusterGrid& grid) const {
    if (place > kFarAhead) {
      const std::int32_t entry = index_[static_cast<std::size_t>(place - kFarAhead)];
      if (Has(entry)) {
        const auto at = static_cast<std::size_t>(entry);
        __builtin_prefetch(&scores_[at]);
        __builtin_prefetch(&mesh_[at - 1].X);
        __builtin_prefetch(&mesh_[at - 1].Z);
      }
    }
    if (place > kNextAhead) {
      const std::int32_t entry = index_[static_cast<std::size_t>(place - kNextAhead)];
      if (!Has(entry)) return;
      const Point3D& point = Point(static_cast<std::size_t>(entry));
      grid.Prefetch(point.X, point.Y);
    }
  }

 private:
  [[nodiscard]] bool Has(std::int32_t entry) const {
    return entry >= 1 && static_cast<std::size_t>(entry) <= mesh_.size() &&
           static_cast<std::size_t>(entry) < scores_.size();
  }

  std::span<const std::int32_t> index_;
  std::span<const float> scores_;
  std::span<const Point3D> mesh_;
};

// The caller's tables count clusters from 1, the grid from 0.
void Start_Cluster(const ClusterTables& tables, int cluster) {
  const auto at = static_cast<std::size_t>(cluster) + 1;
  tables.weights[at] = 0;
  tables.sums[at] = {};
  tables.members[at] = 0;
}

/// Adds a member and returns the mean, of which only X and Y are used.
Point3D Add_Member(const ClusterTables& tables, int cluster, const Point3D& point, double weight) {
  const auto at = static_cast<std::size_t>(cluster) + 1;
  Point3D& sum = tables.sums[at];
  sum.X += weight * point.X;
  sum.Y += weight * point.Y;
  sum.Z += weight * point.Z;
  tables.weights[at] += weight;
  ++tables.members[at];
  return {sum.X / tables.weights[at], sum.Y / tables.weights[at], 0};
}

void Take_Point(const Point3D& point, double weight, ClusterGrid& grid,
                const ClusterTables& tables) {
  const int nearest = grid.Nearest(point.X, point.Y);
  if (nearest != ClusterGrid::kNone) {
    const Point3D mean = Add_Member(tables, nearest, point, weight);
    grid.Move(nearest, mean.X, mean.Y);
    return;
  }
  const int fresh = grid.Count();
  if (fresh == kMostClusters) return;
  Start_Cluster(tables, fresh);
  const Point3D mean = Add_Member(tables, fresh, point, weight);
  grid.Add(mean.X, mean.Y);
}

void Require_Rooms(const ScoredMesh& points, const ClusterTables& tables) {
  const std::size_t entries = static_cast<std::size_t>(points.count) + 1;
  Require_Room(kRoutine, "entries of the index", points.index.size(), entries);
  Require_Room(kRoutine, "scores", points.scores.size(), entries);
  Require_Room(kRoutine, "mesh points", points.mesh.size(), entries - 1);
  Require_Room(kRoutine, "weights", tables.weights.size(), kMostClusters + 1);
  Require_Room(kRoutine, "sums", tables.sums.size(), kMostClusters + 1);
  Require_Room(kRoutine, "member counts", tables.members.size(), kMostClusters + 1);
}

}  // namespace

int MYFUNC_FINDCLUSTERS(const ScoredMesh& points, double distance, double score_limit,
                        const ClusterTables& tables) {
  if (points.count <= 0) return 0;
  Require_Rooms(points, tables);
  const SortedPoints sorted(points);
  ClusterGrid grid(distance);
  WorkMeter meter(static_cast<double>(points.count) / kPointsOfAStep);
  for (std::int32_t place = points.count; place >= 1; --place) {
    if (place % kPointsOfAStep == 0) meter.Step();
    sorted.Prefetch_Ahead(place, grid);
    const std::size_t entry = sorted.Entry(place);
    const double weight = sorted.Weight(entry);
    if (std::isnan(weight)) continue;
    if (!(weight >= score_limit)) break;
    Take_Point(sorted.Point(entry), weight, grid, tables);
  }
  return grid.Count();
}

}  // namespace sylvomex
