// SPDX-License-Identifier: MIT
// Echoes of a laser pulse: its footprint is seven beams, one in the middle and six around it, each
// of which ends on foliage, stem or ground; returns that the receiver cannot separate
// in range form one echo.
#pragma once

#include <array>
#include <vector>

#include "demo/scene/lidar_campaign.h"

namespace sylvomex::demo {

struct TracedEcho {
  double X = 0, Y = 0, Z = 0;
  double range = 0;            // metres from the sensor
  double corrected = 0;        // intensity at the campaign's reference range and mean gain
  std::int16_t intensity = 0;  // as recorded
};

inline constexpr int kMostEchoes = 4;

struct TracedPulse {
  LidarPulsePath path;
  std::uint8_t gain = 0;
  int count = 0;                               // echoes, 1 to 4
  std::array<TracedEcho, kMostEchoes> echoes;  // in order of arrival
};

/// Echoes lie on the pulse's axis, with noise in range. Of more than four, the first three and the
/// last are kept. number: of the pulse in its line.
TracedPulse Trace_Pulse(const Scene& scene, const LidarCampaign& campaign,
                        const LidarPulsePath& path, std::uint64_t number);

/// All pulses of a campaign whose first echo lies in its area (western and southern border
/// included), in order of flight. The result does not depend on the number of threads.
std::vector<TracedPulse> Fly_Lidar(const Scene& scene, const LidarCampaign& campaign);

}  // namespace sylvomex::demo
