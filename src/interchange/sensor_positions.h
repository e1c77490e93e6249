// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "interchange/echo_record.h"
#include "interchange/flight_lines.h"
#include "interchange/trajectory.h"

namespace sylvomex {

/// Where the sensor stood at a pulse.
struct SensorPosition {
  Point3D at;  // as the echo's coordinates
  bool known =
      true;  // false outside the trajectory's times, and where the heading had to be guessed
};

/// The sensor by a stated flying height: that far above the first echo, and moved against the scan
/// angle, height x tan(angle) across the flight: to the left of the heading for an echo on the
/// right. A line without a heading counts as flown to the north.
SensorPosition Sensor_Above(const Point3D& first_echo, double flying_height, double angle_degrees,
                            const std::optional<Heading>& heading);

/// Finds the sensor for every pulse of an import.
class SensorPositions {
 public:
  explicit SensorPositions(Trajectory trajectory) : trajectory_(std::move(trajectory)) {}
  SensorPositions(double flying_height, const FlightLines& lines)
      : flying_height_(flying_height), headings_(lines.Headings()) {}

  /// at: the pulse's first echo, world metres; header: of its file.
  [[nodiscard]] SensorPosition Of(const EchoRecord& first, const Point3D& at,
                                  const LasHeader& header) const;

 private:
  std::optional<Trajectory> trajectory_;
  double flying_height_ = 0;
  std::map<std::uint16_t, Heading> headings_;  // of the flight lines
};

}  // namespace sylvomex
