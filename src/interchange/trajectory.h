// SPDX-License-Identifier: MIT
// Where the sensor flew: a table of times and positions.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/point3d.h"

namespace sylvomex {

class Trajectory {
 public:
  /// Adds a position; times need not come in order. World metres.
  void Add(double time, const Point3D& at);
  /// Brings the positions into the order of their times; required before At.
  void Sort();

  /// The position at a time, linear between its neighbours; before the first and behind the last
  /// position these.
  [[nodiscard]] Point3D At(double time) const;

  [[nodiscard]] bool Covers(double time) const;
  [[nodiscard]] std::size_t Count() const { return rows_.size(); }
  [[nodiscard]] double First_Time() const { return rows_.front().time; }
  [[nodiscard]] double Last_Time() const { return rows_.back().time; }

 private:
  struct Row {
    double time = 0;
    Point3D at;
  };
  std::vector<Row> rows_;
};

/// Reads a trajectory. A CSV file has a header line with the columns t, X, Y and Z in any order,
/// world coordinates. Anything else is smoothed best estimates of trajectory (SBET): records of 17
/// doubles that begin with the time (s), latitude and longitude (radians, WGS 84) and ellipsoidal
/// height (metres), brought to the system `site` (WKT); heights stay as they are.
///
/// Refused, naming file and place, for what is neither, values that are no numbers, and less than
/// two positions.
Trajectory Read_Trajectory(const std::filesystem::path& file, const std::string& site);

/// The time of a LAS point as a trajectory counts it. standard_time: the points count from 1980
/// less 1e9 s. A trajectory within a week's seconds counts from the start of the week.
double Trajectory_Time(const Trajectory& trajectory, double time, bool standard_time);

}  // namespace sylvomex
