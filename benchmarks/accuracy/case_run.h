// SPDX-License-Identifier: MIT
// One stand from its seed to the figures of the search in it.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/site_settings.h"
#include "demo/table/detection_table.h"

namespace sylvomex::demo {

struct CaseRun {
  bool done = false;
  std::string failure;       // why the session stopped, when it is not done
  DetectionTable dominant;   // of trees of 17 m and more, their tops on four photographs and more
  DetectionTable others;     // of all other trees in the plot: "visible" and "found" count them
  double site_seconds = 0;   // making the photographs
  double chain_seconds = 0;  // the matching commands
};

/// Trees whose roles are exchanged: Compare_Clusters counts as visible those that it would have
/// left out, and leaves out the others. Which cluster belongs to which tree stays as it is.
std::vector<TrueTree> With_Roles_Exchanged(std::vector<TrueTree> trees);

/// Makes the site in a folder for temporary files, plays its matching session, judges it and
/// removes the site again. A chain that fails is a run that is not done; RunTimeError and
/// std::filesystem::filesystem_error for files that cannot be written.
CaseRun Run_Case(const SiteSettings& settings);

}  // namespace sylvomex::demo
