// SPDX-License-Identifier: MIT
// An echo between its LAS file and its pulse, as the sort on disk holds it, and the sources of
// echoes.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <span>
#include <string>

#include "interchange/las_header.h"

namespace sylvomex {

inline constexpr double kAngleUnit = 0.006;  // degrees

struct EchoRecord {
  std::uint64_t key = 0;                   // Time_Key, or that of a pulse without time
  std::array<std::int32_t, 3> position{};  // in the frame of its source
  std::uint16_t intensity = 0;
  std::uint8_t returns = 0;  // number of the return, + 16 x returns of the pulse
  std::uint8_t classification = 0;
  std::int16_t angle = 0;    // kAngleUnit, positive to the right of the flight
  std::uint16_t line = 0;    // flight line (point source)
  std::uint32_t source = 0;  // index of its file

  [[nodiscard]] int Return() const { return returns & 15; }
  [[nodiscard]] int Returns() const { return returns >> 4; }
};
static_assert(sizeof(EchoRecord) == 32);

/// Whole numbers in the order of times.
inline std::uint64_t Time_Key(double time) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(time + 0.0);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

/// Keys of pulses without a time lie behind all times; pulse counts them.
inline constexpr std::uint64_t kFirstUntimedKey = 0xFFF8000000000000;
inline std::uint64_t Untimed_Key(std::uint64_t pulse) { return kFirstUntimedKey + pulse; }
inline bool Has_Time(std::uint64_t key) { return key < kFirstUntimedKey; }

/// The time of a key, 0 for a pulse without one.
inline double Time_Of(std::uint64_t key) {
  if (!Has_Time(key)) return 0;
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  return std::bit_cast<double>((key & kSign) != 0 ? key & ~kSign : ~key);
}

/// coordinate = scale x number + offset, world metres.
struct EchoFrame {
  std::array<double, 3> scale{1, 1, 1};
  std::array<double, 3> offset{};

  [[nodiscard]] double Coordinate(std::size_t axis, std::int32_t number) const {
    return scale[axis] * number + offset[axis];
  }
};

/// A LAS file whose echoes are taken.
struct EchoSource {
  std::string name;            // in messages
  std::filesystem::path path;  // what is read: the file, or its decompressed copy
  LasHeader header;
  std::string system;  // WKT to reproject from, empty when it is the site's
  EchoFrame frame;     // of its EchoRecords
  bool timed = true;   // whether its times tell pulses apart
};

/// The echoes of all sources.
inline double Echo_Count(std::span<const EchoSource> sources) {
  double count = 0;
  for (const EchoSource& source : sources) count += static_cast<double>(source.header.count);
  return count;
}

}  // namespace sylvomex
