// SPDX-License-Identifier: MIT
// Lidar files byte by byte, composed field by field.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace sylvomex {

template <class Value>
void Append_Value(std::string& bytes, Value value) {
  char raw[sizeof value];
  std::memcpy(raw, &value, sizeof value);
  bytes.append(raw, sizeof value);
}

struct TestEcho {
  double X = 0, Y = 0, Z = 0;
  std::int16_t intensity = 0;
  double range = 0;
};

/// A pulse of 207 bytes; its only echo is in slot 4 unless another slot is given.
struct TestPulse {
  std::uint8_t echo_count = 1;
  TestEcho slot[5];  // slots 1 to 4, entry 0 unused
  double value = 0;
  double sensor[3] = {0, 0, 1500};
  std::int16_t code = 0;
  std::uint8_t byte_a = 0, gain = 0, byte_b = 0, byte_c = 0;

  [[nodiscard]] std::string Bytes() const {
    std::string bytes = "PULSEHDR";
    Append_Value(bytes, echo_count);
    for (int k = 1; k <= 4; ++k) {
      Append_Value(bytes, slot[k].X);
      Append_Value(bytes, slot[k].Y);
      Append_Value(bytes, slot[k].Z);
    }
    for (int k = 1; k <= 4; ++k) Append_Value(bytes, slot[k].intensity);
    for (int k = 1; k <= 4; ++k) Append_Value(bytes, slot[k].range);
    Append_Value(bytes, value);
    bytes += "reserved: twenty-four by";
    for (const double coordinate : sensor) Append_Value(bytes, coordinate);
    Append_Value(bytes, code);
    Append_Value(bytes, byte_a);
    Append_Value(bytes, gain);
    Append_Value(bytes, byte_b);
    Append_Value(bytes, byte_c);
    return bytes;
  }
};

/// A pulse whose only echo is this one.
inline TestPulse Single_Echo(const TestEcho& echo) {
  TestPulse pulse;
  pulse.slot[4] = echo;
  return pulse;
}

/// A file of a count and that many records.
template <class Record>
std::string Counted_Bytes(const std::vector<Record>& records) {
  std::string bytes;
  Append_Value(bytes, static_cast<std::int32_t>(records.size()));
  for (const Record& record : records) bytes += record.Bytes();
  return bytes;
}

/// A record of the 2004 tiles, 100 bytes.
struct Test2004Record {
  double first_X = 0, first_Y = 0;
  float first_Z = 0;
  double last_X = 0, last_Y = 0;
  float last_Z = 0;

  [[nodiscard]] std::string Bytes() const {
    std::string bytes(44, '\x7f');
    Append_Value(bytes, first_X);
    Append_Value(bytes, first_Y);
    Append_Value(bytes, first_Z);
    bytes += std::string(8, '\x7f');
    Append_Value(bytes, last_X);
    Append_Value(bytes, last_Y);
    Append_Value(bytes, last_Z);
    bytes += std::string(8, '\x7f');
    return bytes;
  }
};

/// A point of the point file, 21 bytes.
struct TestPoint {
  std::uint8_t echo_class = 0;
  double X = 0, Y = 0;
  float Z = 0;

  [[nodiscard]] std::string Bytes() const {
    std::string bytes;
    Append_Value(bytes, echo_class);
    Append_Value(bytes, X);
    Append_Value(bytes, Y);
    Append_Value(bytes, Z);
    return bytes;
  }
};

/// A file that states a count, followed by a number of zero bytes.
inline std::string Announced_Bytes(std::int32_t count, std::size_t bytes_behind) {
  std::string bytes;
  Append_Value(bytes, count);
  return bytes + std::string(bytes_behind, '\0');
}

/// 64 rows; row k is k, 100 + k, 200 - k.
inline std::string Test_Colour_Map() {
  std::string rows;
  for (int k = 1; k <= 64; ++k) {
    rows +=
        std::to_string(k) + "," + std::to_string(100 + k) + "," + std::to_string(200 - k) + "\n";
  }
  return rows;
}

}  // namespace sylvomex
