// SPDX-License-Identifier: MIT
#include "closedlib/back_projection.h"

#include <algorithm>
#include <string>

#include "closedlib/argument_room.h"
#include "closedlib/parallel_tasks.h"
#include "closedlib/projection_rows.h"

namespace sylvomex {
namespace {

constexpr std::size_t kBlockPoints = 64;    // points whose entries are prefetched together
constexpr std::size_t kTaskPoints = 16384;  // a multiple of kBlockPoints
constexpr std::size_t kMostFactors = 9;     // of a geometric mean: one per image

constexpr const char* kRoutine = "back-projection";

/// A camera with a principal distance of 0 has no image: every denominator becomes 0.
PatchProjection Without_Image_For_Zero_Distance(PatchProjection projection) {
  if (projection.c == 0) std::fill(projection.m.begin() + 6, projection.m.end(), 0.0);
  return projection;
}

/// Looks the entries up in one image's slice of the volume, which starts at `slice`.
void Look_Up(std::span<const std::int64_t> entries, const double* slice, float* scores) {
  for (std::size_t k = 0; k < entries.size(); ++k) {
    scores[k] = entries[k] == kNoEntry ? 0 : static_cast<float>(slice[kVolumeImages * entries[k]]);
  }
}

/// The entries of a block are prefetched while it is projected and read after the next block has
/// been projected.
void Project_Stretch(const PatchProjection& projection, std::span<const Point3D> mesh,
                     const double* slice, float* scores) {
  std::array<std::array<std::int64_t, kBlockPoints>, 2> entries;
  std::span<const std::int64_t> called;
  for (std::size_t at = 0; at < mesh.size(); at += kBlockPoints) {
    auto& block = entries[at / kBlockPoints % 2];
    const std::size_t count = std::min(kBlockPoints, mesh.size() - at);
    Nearest_Entries(projection, mesh.subspan(at, count), slice, block.data());
    Look_Up(called, slice, scores + at - called.size());
    called = std::span(block).first(count);
  }
  Look_Up(called, slice, scores + mesh.size() - called.size());
}

/// Calls part(first, last) for stretches of points that cover 0 ... count - 1.
template <class Part>
void For_Each_Stretch(std::size_t count, int threads, const Part& part) {
  const auto tasks = static_cast<int>((count + kTaskPoints - 1) / kTaskPoints);
  Run_Tasks(tasks, threads, [&](int task) {
    const std::size_t first = static_cast<std::size_t>(task) * kTaskPoints;
    part(first, std::min(count, first + kTaskPoints));
  });
}

}  // namespace

void MYFUNC_COMPUTEBKPROJ(int image, const PatchProjection& projection,
                          std::span<const Point3D> mesh, std::span<const double> volume,
                          std::span<float> scores, int threads) {
  if (image < 0 || image >= kVolumeImages) {
    Refuse_Argument(kRoutine, "image " + std::to_string(image));
  }
  Require_Room(kRoutine, "scores", scores.size(), mesh.size());
  Require_Room(kRoutine, "entries of the volume", volume.size(),
               std::size_t{kVolumeImages} * kVolumeSide * kVolumeSide);
  const PatchProjection used = Without_Image_For_Zero_Distance(projection);
  const double* slice = volume.data() + image;
  For_Each_Stretch(mesh.size(), threads, [&](std::size_t first, std::size_t last) {
    Project_Stretch(used, mesh.subspan(first, last - first), slice, &scores[first]);
  });
}

void Geometric_Mean_Scores(std::span<const std::span<const float>> values, std::span<float> scores,
                           int threads) {
  if (values.empty() || values.size() > kMostFactors) {
    Refuse_Argument(
        kRoutine, "the mean of " + std::to_string(values.size()) + " images, 1 to 9 are possible");
  }
  for (const auto& image : values) Require_Room(kRoutine, "values", image.size(), scores.size());
  if (values.size() == 1) {
    std::transform(scores.begin(), scores.end(), values[0].begin(), scores.begin(),
                   [](float, float v) { return static_cast<float>(1 + static_cast<double>(v)); });
    return;
  }
  For_Each_Stretch(scores.size(), threads, [&](std::size_t first, std::size_t last) {
    Mean_Roots(values, first, last - first, &scores[first]);
  });
}

}  // namespace sylvomex
