// SPDX-License-Identifier: MIT
// Pulses as the records of the campaigns' tiles.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "interchange/echo_record.h"
#include "lidar/tile_grid.h"
#include "platform/point3d.h"

namespace sylvomex {

/// In the bytes of a record that the workstation carries without looking at them, this mark tells
/// that they hold what the LAS file said of the echoes.
inline constexpr char kCarriedMark[4] = {'L', 'A', 'S', '1'};

/// Offsets in those bytes of a pulse of 2006 and 2007; the four slots follow each other.
struct CarriedOffset {
  static constexpr std::size_t kClass = 153, kReturns = 157, kAngle = 161, kMark = 173;
};

/// Offsets in a record of 2004: time, intensities and returns of both echoes.
struct Carried2004Offset {
  static constexpr std::size_t kTime = 0, kLine = 8, kIntensity = 10, kReturns = 14, kClass = 16,
                               kAngle = 18, kMark = 40;
};

/// An echo in the site's working coordinates.
struct PulseEcho {
  Point3D at;
  const EchoRecord* record = nullptr;
};

/// Bytes of a record: 207, or 100 of campaign 2004.
std::size_t Record_Bytes(Campaign campaign);

/// Writes a record. echoes: one to four in order of arrival; for 2004 the first and the last.
/// sensor: working coordinates. bytes: Record_Bytes(campaign) of them.
///
/// Slots: 2007 from the fourth down, 2006 from the first up. Heights of 2004 are 0.18 m lower.
/// Intensities end at 32767. The gain of the receiver, which LAS files do not hold, is 127.
void Write_Pulse(Campaign campaign, std::span<const PulseEcho> echoes, const Point3D& sensor,
                 std::span<std::uint8_t> bytes);

}  // namespace sylvomex
