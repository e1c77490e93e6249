// SPDX-License-Identifier: MIT
// One crown fitted to lidar echoes. Trees count from 1.
#pragma once

#include <cstdint>

namespace sylvomex {

inline constexpr int kMaxTrees = 5000;
inline constexpr int kCrownPointLimit = 2000;  // echoes of one crown

struct CrownRecord {
  double X = 0, Y = 0;          // axis, metres
  float TopZ = 0;               // Z of the seed echo, metres
  float Height = 0;             // of the seed echo above the ground, metres
  std::int32_t PointCount = 0;  // echoes accepted into the crown
  double A = 0;                 // profile scale
  double P = 0;                 // profile exponent
  double B = 0;                 // profile offset, metres
};

/// Calls visit("FieldName", field) for every field in the order of declaration.
template <class Record, class Visitor>
void Visit_Crown_Record(Record& record, Visitor&& visit) {
  visit("X", record.X);
  visit("Y", record.Y);
  visit("TopZ", record.TopZ);
  visit("Height", record.Height);
  visit("PointCount", record.PointCount);
  visit("A", record.A);
  visit("P", record.P);
  visit("B", record.B);
}

}  // namespace sylvomex
