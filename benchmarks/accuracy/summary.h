// SPDX-License-Identifier: MIT
// The runs of a case as one row: the mean over its seeds and, of several, least and greatest.
#pragma once

#include <string>
#include <vector>

#include "case_run.h"

namespace sylvomex::demo {

/// Names of the columns over the rows that Case_Row makes.
std::string Heading_Row();

/// The figures of a case. A rate or an error that a run does not have (no such trees, nothing
/// found) counts in no mean; "-" stands where no run has it.
std::string Case_Row(const std::string& name, const std::vector<CaseRun>& runs);

/// What the columns mean, for the foot of the table.
std::string Legend();

}  // namespace sylvomex::demo
