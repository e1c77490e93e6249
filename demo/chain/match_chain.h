// SPDX-License-Identifier: MIT
// Plays the matching session of a site in this process.
#pragma once

#include <filesystem>
#include <ostream>
#include <vector>

#include "demo/table/chain_timing.h"
#include "demo/table/detection_table.h"

namespace sylvomex::demo {

struct ChainResult {
  bool done = false;             // every step ran to its end
  std::vector<CommandRun> runs;  // the chain's commands, in order
};

/// Plays sessions/match.txt below the root on a new block. The reason of a failed step goes to err.
/// RunTimeError when the script cannot be opened or the start-up fails.
ChainResult Play_Match_Session(const std::filesystem::path& root, std::ostream& transcript,
                               std::ostream& err);

/// Cluster positions that the last search wrote to drive c of the root.
std::vector<Point3D> Clusters_Of_Site(const std::filesystem::path& root);

/// The trees in truth.csv below the root.
std::vector<TrueTree> Trees_Of_Site(const std::filesystem::path& root);

}  // namespace sylvomex::demo
