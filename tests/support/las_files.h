// SPDX-License-Identifier: MIT
// LAS files byte by byte, composed field by field from the published layout.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "support/lidar_files.h"

namespace sylvomex {

struct TestLasPoint {
  double X = 0, Y = 0, Z = 0;
  int number = 1, returns = 1;
  double time = 0;
  std::uint16_t intensity = 0;
  std::uint8_t classification = 0;
  double angle = 0;  // degrees
  std::uint16_t line = 0;
};

struct TestLas {
  int format = 1, minor = 2;
  std::array<double, 3> scale{0.001, 0.001, 0.001};
  std::array<double, 3> offset{384000, 6675000, 0};
  std::string wkt;  // of a variable length record, when not empty
  std::uint16_t encoding = 0;
  int extra_bytes = 0;      // behind each point
  std::int64_t count = -1;  // stated instead of the number of points
  std::vector<TestLasPoint> points;

  [[nodiscard]] std::string Bytes() const {
    const std::size_t header_bytes = minor >= 4 ? 375 : minor == 3 ? 235 : 227;
    const std::string record = Point({});
    const std::string variable = wkt.empty() ? "" : Variable_Record();
    const auto stated =
        static_cast<std::uint64_t>(count >= 0 ? count : static_cast<std::int64_t>(points.size()));
    std::string h(header_bytes, '\0');
    h.replace(0, 4, "LASF");
    Put(h, 6, encoding);
    Put(h, 24, std::uint8_t{1});
    Put(h, 25, static_cast<std::uint8_t>(minor));
    Put(h, 94, static_cast<std::uint16_t>(header_bytes));
    Put(h, 96, static_cast<std::uint32_t>(header_bytes + variable.size()));
    Put(h, 100, std::uint32_t{wkt.empty() ? 0U : 1U});
    Put(h, 104, static_cast<std::uint8_t>(format));
    Put(h, 105, static_cast<std::uint16_t>(record.size()));
    Put(h, 107, static_cast<std::uint32_t>(minor >= 4 && format >= 6 ? 0 : stated));
    for (std::size_t axis = 0; axis < 3; ++axis) {
      Put(h, 131 + 8 * axis, scale[axis]);
      Put(h, 155 + 8 * axis, offset[axis]);
    }
    if (minor >= 4) Put(h, 247, stated);
    h += variable;
    for (const TestLasPoint& point : points) h += Point(point);
    return h;
  }

  template <class Value>
  static void Put(std::string& bytes, std::size_t at, Value value) {
    std::memcpy(bytes.data() + at, &value, sizeof value);
  }

 private:
  [[nodiscard]] std::string Variable_Record() const {
    std::string record(54, '\0');
    record.replace(2, 15, "LASF_Projection");
    Put(record, 18, std::uint16_t{2112});
    Put(record, 20, static_cast<std::uint16_t>(wkt.size() + 1));
    return record + wkt + '\0';
  }

  [[nodiscard]] std::string Point(const TestLasPoint& p) const {
    static constexpr int kBytes[] = {20, 28, 26, 34, 57, 63, 30, 36, 38, 59, 67};
    std::string bytes;
    const double at[] = {p.X, p.Y, p.Z};
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const double number =
          scale[axis] == 0 ? 0 : std::round((at[axis] - offset[axis]) / scale[axis]);
      Append_Value(bytes, static_cast<std::int32_t>(std::abs(number) < 2e9 ? number : 0));
    }
    Append_Value(bytes, p.intensity);
    if (format >= 6) {
      Append_Value(bytes, static_cast<std::uint8_t>(p.number + 16 * p.returns));
      Append_Value(bytes, std::uint8_t{0x40});  // on the edge of the flight line
      Append_Value(bytes, p.classification);
      Append_Value(bytes, std::uint8_t{99});
      Append_Value(bytes, static_cast<std::int16_t>(std::lround(p.angle / 0.006)));
      Append_Value(bytes, p.line);
      Append_Value(bytes, p.time);
    } else {
      Append_Value(bytes, static_cast<std::uint8_t>(p.number + 8 * p.returns + 0x40));
      Append_Value(bytes, static_cast<std::uint8_t>(p.classification + 0x20));  // synthetic
      Append_Value(bytes, static_cast<std::int8_t>(std::lround(p.angle)));
      Append_Value(bytes, std::uint8_t{99});
      Append_Value(bytes, p.line);
      if (format != 0 && format != 2) Append_Value(bytes, p.time);
    }
    bytes.resize(static_cast<std::size_t>(kBytes[format] + extra_bytes), '\x5a');
    return bytes;
  }
};

}  // namespace sylvomex
