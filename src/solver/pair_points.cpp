// SPDX-License-Identifier: MIT
#include "solver/pair_points.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace sylvomex {
namespace {

using ByPoint = std::unordered_map<std::int32_t, const FilmPointObservation*>;

ByPoint Observations_Of_Image(std::span<const FilmPointObservation> film, std::int32_t image) {
  ByPoint found;
  int searched = 0;
  for (const FilmPointObservation& observation : film) {
    if (observation.image_id != image) continue;
    if (++searched > kMostPairObservations) break;
    found.emplace(observation.point_id, &observation);
  }
  return found;
}

}  // namespace

std::vector<PairObservation> Observations_Of_Pair(std::span<const GroundPoint> ground,
                                                  std::span<const FilmPointObservation> film,
                                                  std::int32_t first_image,
                                                  std::int32_t second_image) {
  const ByPoint in_first = Observations_Of_Image(film, first_image);
  const ByPoint in_second = Observations_Of_Image(film, second_image);
  std::vector<PairObservation> pairs;
  for (const GroundPoint& point :
       ground.first(std::min<std::size_t>(ground.size(), kMostPairPoints))) {
    const auto first = in_first.find(point.point_id);
    const auto second = in_second.find(point.point_id);
    if (first == in_first.end() || second == in_second.end()) continue;
    pairs.push_back(
        {&point, first->second->x, first->second->y, second->second->x, second->second->y});
  }
  return pairs;
}

IntersectionResult Intersect_Pair(const Camera& first, const Camera& second,
                                  const PairObservation& observed,
                                  const IntersectionSettings& limits) {
  const std::array<FilmObservation, 2> rays{
      FilmObservation{first, {observed.first_x, observed.first_y}},
      FilmObservation{second, {observed.second_x, observed.second_y}}};
  const Point3D& known = observed.point->position;
  IntersectionSettings settings = limits;
  settings.max_passes = kMostPairPasses;
  return Intersect_Rays(
      rays, {known.X + kPairStart.X, known.Y + kPairStart.Y, known.Z + kPairStart.Z}, settings);
}

}  // namespace sylvomex
