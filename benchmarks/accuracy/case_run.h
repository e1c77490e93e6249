// SPDX-License-Identifier: MIT
// Runs one stand, from its seed to the figures of the search.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/site_settings.h"
#include "demo/table/detection_table.h"

namespace sylvomex::demo {

struct CaseRun {
  bool done = false;
  std::string failure;       // why the session stopped, if not done
  DetectionTable dominant;   // of trees of 17 m or more with their tops on four or more photographs
  DetectionTable others;     // of all other trees in the plot: "visible" and "found" count them
  double site_seconds = 0;   // rendering the photographs
  double chain_seconds = 0;  // the matching commands
};

/// The trees with swapped roles, so that Compare_Clusters counts as visible those that it would
/// have left out, and leaves out the others. The matching of clusters and trees does not change.
std::vector<TrueTree> With_Roles_Exchanged(std::vector<TrueTree> trees);

/// Writes the site into a temporary folder, plays its matching session, evaluates it and
/// removes the site again. A failing chain gives a run that is not done; RunTimeError and
/// std::filesystem::filesystem_error for files that cannot be written.
CaseRun Run_Case(const SiteSettings& settings);

}  // namespace sylvomex::demo
