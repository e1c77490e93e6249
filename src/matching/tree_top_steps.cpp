// SPDX-License-Identifier: MIT
#include "matching/tree_top_steps.h"

#include <string>

#include "closedlib/correlation_image.h"
#include "closedlib/index_sort.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"
#include "solver/patch_projection.h"

namespace sylvomex {
namespace {

void Require_Two_Images(std::size_t images) {
  if (images >= 2) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "scores need two ticked images, " + std::to_string(images) + " are ticked");
}

// A mesh rebuilt after its points were scored may be too short for the scores.
void Require_Scored_Mesh(const ScoredMesh& points) {
  if (static_cast<std::size_t>(points.count) <= points.mesh.size()) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     std::to_string(points.count) + " scores for a mesh of " +
                         std::to_string(points.mesh.size()) +
                         " points, compute the back-projections anew");
}

}  // namespace

std::int32_t Mesh_Side_Of(double patch_size) {
  constexpr double kMeshPerPatch = 0.65;
  return To_Int32(patch_size * kMeshPerPatch);
}

std::vector<double> Correlate_Patch(const ImageTemplate& pattern, const RawWindow& window,
                                    std::span<const std::uint8_t> patch, int threads) {
  std::vector<double> result(patch.size());
  MYFUNC_CORIMA({patch, window.Width(), window.Height(), pattern.pixels, pattern.width,
                 pattern.height, pattern.reference_col, pattern.reference_row},
                result, threads);
  return result;
}

std::vector<float> Back_Project(int image, const ImageRecord& record, const ImageRecord& patch,
                                const MeshTable& mesh, std::span<const double> volume,
                                int threads) {
  std::vector<float> correlation(mesh.size());
  const PatchProjection projection =
      Make_Patch_Projection(Make_Camera(record), {patch.SubColOrigin, patch.SubRowOrigin});
  MYFUNC_COMPUTEBKPROJ(image, projection, mesh, volume, correlation, threads);
  return correlation;
}

std::vector<float> Score_Points(std::size_t points,
                                std::span<const std::vector<float>> correlations, int threads) {
  std::vector<float> scores(points + 1);
  if (points > 0) {
    Require_Two_Images(correlations.size());
    const std::vector<std::span<const float>> values(correlations.begin(), correlations.end());
    Geometric_Mean_Scores(values, std::span(scores).subspan(1), threads);
  }
  return scores;
}

std::vector<std::int32_t> Sort_Scores(std::span<const float> scores, int threads) {
  std::vector<std::int32_t> index(scores.size(), 0);
  MYFUNC_INDEXX(scores, index, threads);
  return index;
}

int Group_Points(const ScoredMesh& points, double distance, double score_limit,
                 const ClusterTables& tables) {
  Require_Scored_Mesh(points);
  return MYFUNC_FINDCLUSTERS(points, distance, score_limit, tables);
}

}  // namespace sylvomex
