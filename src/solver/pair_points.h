// SPDX-License-Identifier: MIT
// Known ground points intersected from one stereo pair: a test of the pair's orientation.
#pragma once

#include <span>
#include <vector>

#include "solver/point_lists.h"
#include "solver/space_intersection.h"

namespace sylvomex {

inline constexpr int kMostPairPoints = 3600;       // ground points, the first of their list
inline constexpr int kMostPairObservations = 311;  // of each image, the first of their list
inline constexpr int kMostPairPasses = 10;         // of an intersection
inline constexpr Point3D kPairStart{-2, 6, -5};    // from the known point, metres

/// A ground point with its observations in both images of a pair.
struct PairObservation {
  const GroundPoint* point = nullptr;
  double first_x = 0, first_y = 0;  // film, metres
  double second_x = 0, second_y = 0;
};

/// The points that both images observe, in the order of ground. Of several observations of one
/// point the first counts. The answer points into ground.
std::vector<PairObservation> Observations_Of_Pair(std::span<const GroundPoint> ground,
                                                  std::span<const FilmPointObservation> film,
                                                  std::int32_t first_image,
                                                  std::int32_t second_image);

/// Intersects a point from a start at a fixed offset from its known position; limits: the
/// corrections that end the iteration. Fails and tells as Intersect_Rays.
IntersectionResult Intersect_Pair(const Camera& first, const Camera& second,
                                  const PairObservation& observed,
                                  const IntersectionSettings& limits);

}  // namespace sylvomex
