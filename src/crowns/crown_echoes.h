// SPDX-License-Identifier: MIT
// The echoes of an area in the order of their height above the ground, and how a crown is grown
// out of them.
//
// Ranks count from 0 at the lowest echo; echoes of the same height keep the order in which
// they were gathered.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "crowns/crown_profile.h"
#include "crowns/place_grid.h"
#include "lidar/point_file.h"

namespace sylvomex {

/// An echo with the elevation of the ground under it, metres.
struct GroundedEcho {
  LidarPoint point;
  double ground = 0;

  /// Height above the ground, kept to single precision.
  [[nodiscard]] float Normal_Height() const { return static_cast<float>(point.Z - ground); }
};

/// An echo that was taken into a crown.
struct CrownEcho {
  std::int32_t rank = 0;
  float radial = 0;  // horizontal distance to the axis, metres
  float depth = 0;   // below the top, metres
};

/// Which unused echoes may join a crown, by their height above the ground, and how their depth
/// enters the profile.
struct GrowthLimits {
  double above = 0;  // metres; the limit itself does not join, here and below
  double below = std::numeric_limits<double>::infinity();
  double least_depth = -std::numeric_limits<double>::infinity();  // lesser ones are raised to it
  double depth_offset = 0;                                        // added inside the sine
};

class CrownEchoes {
 public:
  /// order: the positions of the echoes, counted from 1, ascending by height.
  CrownEchoes(std::span<const GroundedEcho> echoes, std::span<const std::int32_t> order);

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(sorted_.size()); }
  [[nodiscard]] const GroundedEcho& At(std::int32_t rank) const {
    return sorted_[static_cast<std::size_t>(rank)];
  }
  [[nodiscard]] bool Is_Used(std::int32_t rank) const {
    return used_[static_cast<std::size_t>(rank)] != 0;
  }
  void Use(std::int32_t rank) { used_[static_cast<std::size_t>(rank)] = 1; }

  /// The highest unused echo below the highest of all, if it is higher than that above the
  /// ground. The highest of all seeds the first crown and is passed over.
  std::optional<std::int32_t> Next_Seed(double lowest);

  /// Takes the unused echoes that lie nearer to the axis than the profile's radius at their
  /// depth, from the top down, and marks them as used.
  std::vector<CrownEcho> Grow(const CrownRecord& crown, const GrowthLimits& limits);

 private:
  std::vector<GroundedEcho> sorted_;
  std::vector<float> heights_;
  std::vector<std::uint8_t> used_;
  PlaceGrid grid_;
  std::int32_t seed_rank_;  // no unused echo lies above, the highest of all set aside
  std::vector<std::int32_t> near_;
};

}  // namespace sylvomex
