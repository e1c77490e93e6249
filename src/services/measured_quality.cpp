// SPDX-License-Identifier: MIT
#include "services/measured_quality.h"

#include <vector>

#include "platform/run_time_error.h"
#include "solver/space_intersection.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

std::optional<int> Image_Of_Id(const Workspace& w, std::int32_t id) {
  for (int k = 0; k < w.ImageCount; ++k) {
    if (w.ImageBlock(k).ImageId == id) return k;
  }
  return std::nullopt;
}

std::optional<std::vector<FilmObservation>> Observations_Of(const Workspace& w,
                                                            const MeasuredLine& line) {
  std::vector<FilmObservation> observations;
  for (const MeasuredRay& ray : line.rays) {
    const auto image = Image_Of_Id(w, ray.image_id);
    if (!image) return std::nullopt;
    const Camera camera = Camera_Of(w, *image);
    observations.push_back({camera, Pixel_To_Image(camera, {ray.col, ray.row})});
  }
  return observations;
}

}  // namespace

std::optional<MeasuredQuality> Quality_Of(const Workspace& w, const MeasuredLine& line) {
  if (!line.readable || line.rays.size() < 2) return std::nullopt;
  try {
    const auto observations = Observations_Of(w, line);
    if (!observations) return std::nullopt;
    const IntersectionResult result =
        Intersect_Rays(std::span<const FilmObservation>(*observations), line.at, {});
    if (result.singular) return std::nullopt;
    return MeasuredQuality{result.std_x, result.std_y, result.std_z};
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace sylvomex
