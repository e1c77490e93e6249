// SPDX-License-Identifier: MIT
// The matching session of a site, played in this process.
#pragma once

#include <filesystem>
#include <ostream>
#include <vector>

#include "demo/table/chain_timing.h"
#include "demo/table/detection_table.h"

namespace sylvomex::demo {

struct ChainResult {
  bool done = false;             // every step to its end
  std::vector<CommandRun> runs;  // of the chain's commands, in their order
};

/// Plays sessions/match.txt below the root over a new block. Why a step failed goes to err.
/// RunTimeError when the script cannot be opened or the start-up fails.
ChainResult Play_Match_Session(const std::filesystem::path& root, std::ostream& transcript,
                               std::ostream& err);

/// Cluster positions that the last search left on drive c of the root.
std::vector<Point3D> Clusters_Of_Site(const std::filesystem::path& root);

/// Trees of truth.csv below the root.
std::vector<TrueTree> Trees_Of_Site(const std::filesystem::path& root);

}  // namespace sylvomex::demo
