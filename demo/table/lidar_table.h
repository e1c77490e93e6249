// SPDX-License-Identifier: MIT
// What the lidar campaigns of a site observed of its canopy and ground.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "demo/table/lidar_tiles.h"
#include "demo/table/sample_statistics.h"
#include "heightmodels/raster_model.h"

namespace sylvomex::demo {

/// Height above the ground model at which the canopy begins, and the greatest height of an echo
/// counted as ground, metres.
inline constexpr double kCanopyBegin = 2;
inline constexpr double kGroundBand = 0.5;

struct CanopyHeights {
  double cover = 0;          // share of first echoes (or cells) at or above kCanopyBegin
  SampleStatistics heights;  // of these, metres above ground
};

struct LidarSummary {
  std::size_t pulses = 0;
  double density = 0;  // pulses per square metre in the first echoes' bounding box
  double echoes_per_pulse = 0;
  std::array<double, 4> share{};  // pulses with one to four echoes
  CanopyHeights canopy;           // from first echoes
  SampleStatistics ground;        // last echoes within kGroundBand of the ground
};

/// ground: elevations. Without pulses all values are zero.
LidarSummary Summarize_Lidar(const std::vector<TilePulse>& pulses, const RasterModel& ground);

/// The true canopy, cell by cell from two models with the same cells (ground and canopy
/// elevations), up to margin metres inside the forest's border.
CanopyHeights True_Canopy(const RasterModel& ground, const RasterModel& canopy, double margin);

struct YearSummary {
  int year = 0;
  LidarSummary lidar;
};

/// One column per campaign and one for the truth, aligned.
std::string Table_Text(const std::vector<YearSummary>& campaigns, const CanopyHeights& truth);

/// Reads tiles and models of a site: the whole table as text. RunTimeError naming what is missing.
std::string Lidar_Table_Of_Site(const std::string& root);

}  // namespace sylvomex::demo
