// SPDX-License-Identifier: MIT
// Known ground points intersected from a single stereo pair: a test of the pair's orientation.
#pragma once

#include <span>
#include <vector>

#include "solver/point_lists.h"
#include "solver/space_intersection.h"

namespace sylvomex {

inline constexpr int kMostPairPoints = 3600;  // ground points used, from the start of their list
inline constexpr int kMostPairObservations = 311;  // per image, from the start of its list
inline constexpr int kMostPairPasses = 10;         // iterations of one intersection
inline constexpr Point3D kPairStart{-2, 6, -5};    // start relative to the known point, metres

/// A ground point with its observations in both images of a pair.
struct PairObservation {
  const GroundPoint* point = nullptr;
  double first_x = 0, first_y = 0;  // film, metres
  double second_x = 0, second_y = 0;
};

/// The points observed in both images, in the order of ground. Of repeated observations of one
/// point the first is used. The result points into ground.
std::vector<PairObservation> Observations_Of_Pair(std::span<const GroundPoint> ground,
                                                  std::span<const FilmPointObservation> film,
                                                  std::int32_t first_image,
                                                  std::int32_t second_image);

/// Intersects a point, starting at a fixed offset from its known position; limits: corrections
/// below which the iteration ends. Errors and result as for Intersect_Rays.
IntersectionResult Intersect_Pair(const Camera& first, const Camera& second,
                                  const PairObservation& observed,
                                  const IntersectionSettings& limits);

}  // namespace sylvomex
