// SPDX-License-Identifier: MIT
// The three lidar campaigns of the site. Each flies two parallel strips in opposite directions on
// either side of the forest's middle and scans in a zigzag.
#pragma once

#include <array>
#include <vector>

#include "demo/scene/scene.h"

namespace sylvomex::demo {

struct LidarCampaign {
  int year = 0;
  double inset = 0;            // metres from the forest's border to that of the campaign's area
  double density = 0;          // pulses a square metre
  double flying_height = 0;    // metres above the mean ground
  double divergence = 0;       // radians, full angle of the beam
  double resolution = 0;       // metres; smallest separation of distinct echoes
  double range_noise = 0;      // metres, standard deviation
  double reference_range = 0;  // metres, of the range correction of intensities
  double range_exponent = 0;   // of that correction
  double full_intensity = 0;   // corrected intensity of a white target that fills the footprint
  bool has_gain_control = false;
  double tile_west = 0, tile_south = 0;  // corner from which tiles of 100 m are counted
};

/// 2004, 2006 and 2007.
const std::array<LidarCampaign, 3>& Lidar_Campaigns();

/// One laser pulse before it hits anything.
struct LidarPulsePath {
  double time = 0;  // seconds from the first pulse
  int strip = 0;
  bool scans_to_left = false;  // of the map: the scan angle falls with time
  bool at_line_end = false;    // first or last pulse of a scan line
  double angle = 0;            // radians from the vertical, positive to the east
  double roll = 0, pitch = 0;  // radians of the sensor
  Ray ray;                     // from the sensor, w = -1
};

/// Number of scan lines of a strip, and pulses per line.
struct LidarStrip {
  int scan_lines = 0;
  int pulses_a_line = 0;
};
inline constexpr int kLidarStrips = 2;

/// share: fraction of the campaign's density, 1 for all.
LidarStrip Lidar_Strip(const LidarCampaign& campaign, double share);

/// The pulses of one scan line; a pure function of its arguments.
std::vector<LidarPulsePath> Scan_Line(const Scene& scene, const LidarCampaign& campaign, int strip,
                                      int line);

}  // namespace sylvomex::demo
