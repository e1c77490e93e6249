// SPDX-License-Identifier: MIT
#include "interchange/sensor_positions.h"

#include <cmath>
#include <numbers>

namespace sylvomex {
namespace {

/// Degrees. Formats before 6 hold whole ones, which are not multiples of the unit.
double Angle_Of(const EchoRecord& echo, const LasHeader& header) {
  constexpr int kFirstWithFineAngles = 6;
  const double angle = echo.angle * kAngleUnit;
  return header.format < kFirstWithFineAngles ? std::round(angle) : angle;
}

}  // namespace

SensorPosition Sensor_Above(const Point3D& first_echo, double flying_height, double angle_degrees,
                            const std::optional<Heading>& heading) {
  const double aside = flying_height * std::tan(angle_degrees * std::numbers::pi / 180);
  const Heading forward = heading.value_or(Heading{});
  return {{first_echo.X - aside * forward.Y, first_echo.Y + aside * forward.X,
           first_echo.Z + flying_height},
          heading.has_value() || angle_degrees == 0};
}

SensorPosition SensorPositions::Of(const EchoRecord& first, const Point3D& at,
                                   const LasHeader& header) const {
  if (!trajectory_) {
    const auto heading = first.angle == 0 ? headings_.end() : headings_.find(first.line);
    return Sensor_Above(at, flying_height_, Angle_Of(first, header),
                        heading == headings_.end() ? std::nullopt : std::optional(heading->second));
  }
  const double time = Trajectory_Time(*trajectory_, Time_Of(first.key), header.standard_time);
  return {trajectory_->At(time), Has_Time(first.key) && trajectory_->Covers(time)};
}

}  // namespace sylvomex
