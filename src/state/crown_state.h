// SPDX-License-Identifier: MIT
// State kept by the crown commands.
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
  std::int32_t TreeCount = 0;  // fitted trees; later entries belong to trees taken back
  SeedColour Seed;             // of the crown begun last

  LocalTree LocalTreeRecord;
  bool LidarFitDone = false;
  bool MultiSizeDone = false;  // never set by any command
};

}  // namespace sylvomex
