// SPDX-License-Identifier: MIT
// A pulse of the 2006 and 2007 campaigns and its layout in the tile files.
#pragma once

#include <cstddef>
#include <cstdint>

namespace sylvomex {

inline constexpr int kEchoSlots = 4;

/// An echo slot. A slot that holds no echo has X = 0.
struct LidarEcho {
  double X = 0, Y = 0, Z = 0;  // metres
  std::int16_t Intensity = 0;  // raw
  double Range = 0;            // sensor to target, metres
};

/// Slots fill from the top down: the first echo to arrive stands in slot 4, the next in 3.
/// The first eight bytes and the 24 reserved bytes of a file record are not read.
struct LidarPulse {
  std::uint8_t EchoCount = 0;
  LidarEcho Echo[kEchoSlots];  // slot k is Echo[k - 1]
  double PulseValue = 0;
  double SensorX = 0, SensorY = 0, SensorZ = 0;  // sensor at the pulse, metres
  std::int16_t PulseCode = 0;
  std::uint8_t PulseByteA = 0;
  std::uint8_t Gain = 0;  // of the receiver
  std::uint8_t PulseByteB = 0;
  std::uint8_t PulseByteC = 0;

  [[nodiscard]] const LidarEcho& Slot(int slot) const { return Echo[slot - 1]; }
};

inline constexpr std::int64_t kPulseBytes = 207;

/// Byte offsets in a record. Echoes and ranges of slots 1 to 4 follow each other.
struct PulseOffset {
  static constexpr std::size_t kEchoCount = 8, kEcho = 9, kIntensity = 105, kRange = 113,
                               kValue = 145, kSensor = 177, kCode = 201, kByteA = 203, kGain = 204,
                               kByteB = 205, kByteC = 206;
};

}  // namespace sylvomex
