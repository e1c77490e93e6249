// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex::demo {

/// South-west corner and side of the forest square, metres.
inline constexpr double kForestWest = 2515000.0;
inline constexpr double kForestSouth = 6860000.0;
inline constexpr double kForestSide = 300.0;

/// The site's parameters. Equal settings give equal bytes.
struct SiteSettings {
  std::uint64_t seed = 20261121;
  int threads = 0;                 // 0: as many as the machine has; never changes the result
  double stems_per_hectare = 100;  // 10 to 600; fewer when there is no room for more
  double pine_share = 0.45;        // shares are weights, normalised to sum 1
  double spruce_share = 0.35;
  double birch_share = 0.20;
  double sun_azimuth_deg = 165;   // from north, clockwise
  double sun_elevation_deg = 38;  // 20 to 90
  double noise_sigma = 2.5;       // pixel noise, grey values; 0 to 60
  double pixel_scale = 1;         // 1 to 20: pixels of 15 micrometres times this
  double pulse_share = 1;         // 0.001 to 1: share of the lidar campaigns' pulses
  double margin = 15;             // 0 to 250: metres around the forest on the photographs
};

/// Margin in metres that fills each of six panes on a screen of 2560 x 1440 pixels at 1:10.
inline constexpr double kWideMargin = 175;

}  // namespace sylvomex::demo
