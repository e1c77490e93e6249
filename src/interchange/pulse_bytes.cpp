// SPDX-License-Identifier: MIT
#include "interchange/pulse_bytes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "lidar/pulse_record.h"
#include "lidar/tile_2004.h"

namespace sylvomex {
namespace {

constexpr float k2004Lift = 0.18F;  // the overlay of 2004 adds it
constexpr std::uint8_t kUnknownGain = 127;

template <class Value>
void Put(std::span<std::uint8_t> bytes, std::size_t offset, Value value) {
  std::memcpy(bytes.data() + offset, &value, sizeof value);
}

std::int16_t Intensity_Of(const EchoRecord& echo) {
  return static_cast<std::int16_t>(std::min<int>(echo.intensity, 32767));
}

double Distance(const Point3D& a, const Point3D& b) {
  return std::hypot(a.X - b.X, a.Y - b.Y, a.Z - b.Z);
}

void Write_Echo(const PulseEcho& echo, std::size_t slot, const Point3D& sensor,
                std::span<std::uint8_t> bytes) {
  Put(bytes, PulseOffset::kEcho + 24 * slot, echo.at);
  Put(bytes, PulseOffset::kIntensity + 2 * slot, Intensity_Of(*echo.record));
  Put(bytes, PulseOffset::kRange + 8 * slot, Distance(sensor, echo.at));
  bytes[CarriedOffset::kClass + slot] = echo.record->classification;
  bytes[CarriedOffset::kReturns + slot] = echo.record->returns;
}

void Write_Pulse_Record(std::span<const PulseEcho> echoes, bool from_first_slot,
                        const Point3D& sensor, std::span<std::uint8_t> bytes) {
  const EchoRecord& first = *echoes.front().record;
  bytes[PulseOffset::kEchoCount] = static_cast<std::uint8_t>(echoes.size());
  for (std::size_t i = 0; i < echoes.size(); ++i) {
    Write_Echo(echoes[i], from_first_slot ? i : kEchoSlots - 1 - i, sensor, bytes);
  }
  Put(bytes, PulseOffset::kValue, Time_Of(first.key));
  Put(bytes, PulseOffset::kSensor, sensor);
  Put(bytes, PulseOffset::kCode, static_cast<std::int16_t>(first.line));
  bytes[PulseOffset::kByteA] = static_cast<std::uint8_t>(first.Returns());
  bytes[PulseOffset::kGain] = kUnknownGain;
  bytes[PulseOffset::kByteB] = first.classification;
  Put(bytes, CarriedOffset::kAngle, first.angle);
  std::memcpy(bytes.data() + CarriedOffset::kMark, kCarriedMark, sizeof kCarriedMark);
}

void Write_2004_Echo(const PulseEcho& echo, std::size_t offset, std::size_t which,
                     std::span<std::uint8_t> bytes) {
  Put(bytes, offset, echo.at.X);
  Put(bytes, offset + 8, echo.at.Y);
  Put(bytes, offset + 16, static_cast<float>(echo.at.Z) - k2004Lift);
  Put(bytes, Carried2004Offset::kIntensity + 2 * which, Intensity_Of(*echo.record));
  bytes[Carried2004Offset::kReturns + which] = echo.record->returns;
  bytes[Carried2004Offset::kClass + which] = echo.record->classification;
}

void Write_2004_Record(std::span<const PulseEcho> echoes, std::span<std::uint8_t> bytes) {
  const EchoRecord& first = *echoes.front().record;
  Write_2004_Echo(echoes.front(), 44, 0, bytes);
  Write_2004_Echo(echoes.back(), 72, 1, bytes);
  Put(bytes, Carried2004Offset::kTime, Time_Of(first.key));
  Put(bytes, Carried2004Offset::kLine, first.line);
  Put(bytes, Carried2004Offset::kAngle, first.angle);
  std::memcpy(bytes.data() + Carried2004Offset::kMark, kCarriedMark, sizeof kCarriedMark);
}

}  // namespace

std::size_t Record_Bytes(Campaign campaign) {
  return static_cast<std::size_t>(campaign == Campaign::Als2004 ? kRecord2004Bytes : kPulseBytes);
}

void Write_Pulse(Campaign campaign, std::span<const PulseEcho> echoes, const Point3D& sensor,
                 std::span<std::uint8_t> bytes) {
  std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
  if (campaign == Campaign::Als2004) {
    Write_2004_Record(echoes, bytes);
  } else {
    Write_Pulse_Record(echoes, campaign == Campaign::Als2006, sensor, bytes);
  }
}

}  // namespace sylvomex
