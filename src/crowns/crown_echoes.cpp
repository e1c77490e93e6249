// SPDX-License-Identifier: MIT
#include "crowns/crown_echoes.h"

#include <algorithm>
#include <cmath>

namespace sylvomex {
namespace {

constexpr double kCellSize = 1.5;  // metres

std::vector<GroundedEcho> Sorted(std::span<const GroundedEcho> echoes,
                                 std::span<const std::int32_t> order) {
  std::vector<GroundedEcho> sorted;
  sorted.reserve(order.size());
  for (const std::int32_t position : order) {
    sorted.push_back(echoes[static_cast<std::size_t>(position - 1)]);
  }
  return sorted;
}

template <double LidarPoint::*Coordinate>
std::vector<double> Coordinates(const std::vector<GroundedEcho>& echoes) {
  std::vector<double> values;
  values.reserve(echoes.size());
  for (const GroundedEcho& echo : echoes) values.push_back(echo.point.*Coordinate);
  return values;
}

PlaceGrid Grid_Of(const std::vector<GroundedEcho>& echoes) {
  return {Coordinates<&LidarPoint::X>(echoes), Coordinates<&LidarPoint::Y>(echoes), kCellSize};
}

double Distance(const CrownRecord& crown, const LidarPoint& point) {
  const double dX = point.X - crown.X;
  const double dY = point.Y - crown.Y;
  return std::sqrt(dX * dX + dY * dY);
}

}  // namespace

CrownEchoes::CrownEchoes(std::span<const GroundedEcho> echoes, std::span<const std::int32_t> order)
    : sorted_(Sorted(echoes, order)),
      used_(order.size(), 0),
      grid_(Grid_Of(sorted_)),
      seed_rank_(Count() - 2) {
  heights_.reserve(sorted_.size());
  for (const GroundedEcho& echo : sorted_) heights_.push_back(echo.Normal_Height());
}

std::optional<std::int32_t> CrownEchoes::Next_Seed(double lowest) {
  while (seed_rank_ >= 0 && Is_Used(seed_rank_)) --seed_rank_;
  if (seed_rank_ < 0 || !(heights_[static_cast<std::size_t>(seed_rank_)] > lowest)) {
    return std::nullopt;
  }
  return seed_rank_;
}

std::vector<CrownEcho> CrownEchoes::Grow(const CrownRecord& crown, const GrowthLimits& limits) {
  std::vector<CrownEcho> taken;
  const CrownShape shape = Shape_Of(crown);
  grid_.Near(crown.X, crown.Y, Widest_Radius(shape, crown.Height), near_);
  for (auto at = near_.rbegin(); at != near_.rend(); ++at) {
    const std::int32_t rank = *at;
    const double height = heights_[static_cast<std::size_t>(rank)];
    if (!(height > limits.above)) break;
    if (Is_Used(rank) || !(height < limits.below)) continue;
    const double depth = std::max(crown.Height - height, limits.least_depth);
    const double radial = Distance(crown, At(rank).point);
    if (!(Crown_Radius(shape, crown.Height, depth + limits.depth_offset) > radial)) continue;
    Use(rank);
    taken.push_back({rank, static_cast<float>(radial), static_cast<float>(depth)});
  }
  return taken;
}

}  // namespace sylvomex
