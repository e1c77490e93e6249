// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "interchange/echo_record.h"
#include "interchange/echo_shares.h"
#include "interchange/lidar_import.h"
#include "interchange/sensor_positions.h"
#include "interchange/site_record.h"
#include "interchange/tile_output.h"
#include "interchange/told_share.h"

namespace sylvomex {

/// What the records of the pulses are made from.
struct PulseMaking {
  Campaign campaign = Campaign::Als2007;
  std::span<const EchoSource> sources;
  const SensorPositions& sensors;
  WorldShift shift;
  ToldShare told = {};
};

/// Joins the echoes of the shares into pulses and appends their records to the tiles of their first
/// echoes, in the order of the keys. Adds to the counts of the report.
void Write_Pulses(const EchoShares& shares, const PulseMaking& making, TileOutput& tiles,
                  LidarReport& report);

}  // namespace sylvomex
