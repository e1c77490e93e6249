// SPDX-License-Identifier: MIT
#include "closedlib/clusters.h"

#include <hwy/base.h>

#include <cmath>
#include <string>

#include "closedlib/argument_room.h"
#include "closedlib/cluster_grid.h"

namespace sylvomex {
namespace {

constexpr std::int32_t kFarAhead = 24;  // points whose records are prefetched
constexpr std::int32_t kNextAhead = 6;  // points whose cell is prefetched

constexpr const char* kRoutine = "clusters";

/// The sorted points, walked from the last entry down.
class SortedPoints {
 public:
  SortedPoints(std::span<const std::int32_t> index, std::span<const float> scores,
               std::span<const MeshPoint> mesh)
      : index_(index), scores_(scores), mesh_(mesh) {}

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
  [[nodiscard]] const MeshPoint& Point(std::size_t entry) const { return mesh_[entry - 1]; }

  // Force-inlined: the compiler would drop a call of a function that only prefetches as one
  // without effect.
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
      const MeshPoint& point = Point(static_cast<std::size_t>(entry));
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
  std::span<const MeshPoint> mesh_;
};

/// The tables of the caller, which count from 1, while clusters of the grid count from 0.
struct ClusterTables {
  std::span<double> weights;
  std::span<MeshPoint> sums;
  std::span<std::int32_t> members;

  void Start(int cluster) const {
    const auto at = static_cast<std::size_t>(cluster) + 1;
    weights[at] = 0;
    sums[at] = {};
    members[at] = 0;
  }

  /// Adds a member and returns the mean, of which only X and Y are used.
  [[nodiscard]] MeshPoint Add(int cluster, const MeshPoint& point, double weight) const {
    const auto at = static_cast<std::size_t>(cluster) + 1;
    MeshPoint& sum = sums[at];
    sum.X += weight * point.X;
    sum.Y += weight * point.Y;
    sum.Z += weight * point.Z;
    weights[at] += weight;
    ++members[at];
    return {sum.X / weights[at], sum.Y / weights[at], 0};
  }
};

void Take_Point(const MeshPoint& point, double weight, ClusterGrid& grid,
                const ClusterTables& tables) {
  const int nearest = grid.Nearest(point.X, point.Y);
  if (nearest != ClusterGrid::kNone) {
    const MeshPoint mean = tables.Add(nearest, point, weight);
    grid.Move(nearest, mean.X, mean.Y);
    return;
  }
  const int fresh = grid.Count();
  if (fresh == kMostClusters) return;
  tables.Start(fresh);
  const MeshPoint mean = tables.Add(fresh, point, weight);
  grid.Add(mean.X, mean.Y);
}

}  // namespace

int MYFUNC_FINDCLUSTERS(std::int32_t count, double distance, double score_limit,
                        std::span<const std::int32_t> index, std::span<const float> scores,
                        std::span<const MeshPoint> mesh, std::span<double> weights,
                        std::span<MeshPoint> sums, std::span<std::int32_t> members) {
  if (count <= 0) return 0;
  const std::size_t entries = static_cast<std::size_t>(count) + 1;
  Require_Room(kRoutine, "entries of the index", index.size(), entries);
  Require_Room(kRoutine, "scores", scores.size(), entries);
  Require_Room(kRoutine, "mesh points", mesh.size(), entries - 1);
  Require_Room(kRoutine, "weights", weights.size(), kMostClusters + 1);
  Require_Room(kRoutine, "sums", sums.size(), kMostClusters + 1);
  Require_Room(kRoutine, "member counts", members.size(), kMostClusters + 1);
  const SortedPoints points(index, scores, mesh);
  const ClusterTables tables = {weights, sums, members};
  ClusterGrid grid(distance);
  for (std::int32_t place = count; place >= 1; --place) {
    points.Prefetch_Ahead(place, grid);
    const std::size_t entry = points.Entry(place);
    const double weight = points.Weight(entry);
    if (std::isnan(weight)) continue;
    if (!(weight >= score_limit)) break;
    Take_Point(points.Point(entry), weight, grid, tables);
  }
  return grid.Count();
}

}  // namespace sylvomex
