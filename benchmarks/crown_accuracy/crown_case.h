// SPDX-License-Identifier: MIT
// One stand from its seed to the crowns that are fitted in it.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/site_settings.h"
#include "demo/table/crown_comparison.h"

namespace sylvomex::demo {

struct CrownCase {
  double stems_per_hectare = 100;
  double pulses = 4;  // a square metre
};

struct CrownCaseRun {
  bool done = false;
  std::string failure;           // why the session stopped, when it is not done
  std::vector<TreeCrown> trees;  // of nine boxes, one in the middle of each lidar tile
  int crowns = 0;                // fitted, with a tree or without
  int failed = 0;                // seeds without a crown
  double seconds = 0;            // of the command, all boxes
};

/// Makes the stand and a lidar campaign like that of 2006 over it in a folder for temporary files,
/// fits the crowns of the boxes and removes the folder again. RunTimeError and
/// std::filesystem::filesystem_error for files that cannot be written.
CrownCaseRun Run_Crown_Case(const CrownCase& one, std::uint64_t seed);

}  // namespace sylvomex::demo
