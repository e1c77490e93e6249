// SPDX-License-Identifier: MIT
// What the crown commands keep.
#pragma once

#include "crowns/crown_record.h"
#include "crowns/local_tree.h"
#include "platform/table.h"

namespace sylvomex {

/// Means of a few pixels around the seed of a crown, channels in the order of the raw file.
struct SeedColour {
  double first = 0, second = 0, third = 0;
};

struct CrownState {
  Table<CrownRecord, 1, kMaxTrees> CrownTrees;
  std::int32_t TreeCount = 0;  // trees fitted; entries behind them are of trees given back
  SeedColour Seed;             // of the crown that was begun last

  LocalTree LocalTreeRecord;
  bool LidarFitDone = false;
  bool MultiSizeDone = false;  // no command sets it
};

}  // namespace sylvomex
