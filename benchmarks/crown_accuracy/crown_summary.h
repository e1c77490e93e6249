// SPDX-License-Identifier: MIT
// The runs of a case as rows, one a species: means over the seeds and, of several, the least and
// the greatest.
#pragma once

#include <string>
#include <vector>

#include "crown_case.h"

namespace sylvomex::demo {

std::string Crown_Heading();

/// Runs that are not done count in nothing.
std::string Crown_Rows(const CrownCase& one, const std::vector<CrownCaseRun>& runs);

/// What the columns mean, for the foot of the table.
std::string Crown_Legend();

}  // namespace sylvomex::demo
