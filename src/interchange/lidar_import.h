// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "interchange/import_transaction.h"
#include "interchange/told_share.h"
#include "lidar/tile_grid.h"

namespace sylvomex {

struct LidarImport {
  std::vector<std::filesystem::path> files;  // LAS or LAZ
  Campaign campaign = Campaign::Als2007;
  std::filesystem::path trajectory;     // empty: none
  std::optional<double> flying_height;  // metres above the first echo; used without a trajectory
  ToldShare told = {};
};

struct LidarReport {
  std::vector<std::string> skipped;  // files that the site holds already
  std::uint64_t files = 0;           // imported now
  std::uint64_t echoes = 0;          // read
  std::uint64_t pulses = 0;
  std::uint64_t echoes_kept = 0;
  std::uint64_t echoes_left_out =
      0;  // behind the fourth of a pulse; in 2004 between first and last
  std::uint64_t unknown_sensors = 0;  // outside the trajectory, or without a heading
  std::uint64_t low_sensors = 0;      // at 1000 m or below
  std::uint64_t tiles = 0;            // written
  std::vector<std::string> notes;     // a sentence each
};

/// The flying height that is taken when neither it nor a trajectory is stated, metres.
inline constexpr double kAssumedFlyingHeight = 1500;

/// Joins the echoes of LAS and LAZ files into pulses and adds these to the tiles of a campaign. The
/// folder of the tiles is that of the campaign's path header, which is made when it is missing.
/// Files that the site holds already, by their checksums, are left out.
///
/// Memory stays bounded: the echoes are sorted on disk, in the site. The tiles are the same for any
/// number of threads. Refused and FailedOnTheWay as told in failures.h.
LidarReport Import_Lidar(ImportTransaction& transaction, const LidarImport& import);

}  // namespace sylvomex
