// SPDX-License-Identifier: MIT
// The runs of a case as one row: the mean over its seeds and, for several seeds, minimum and
// maximum.
#pragma once

#include <string>
#include <vector>

#include "case_run.h"

namespace sylvomex::demo {

/// Names of the columns of the rows made by Case_Row.
std::string Heading_Row();

/// The figures of a case. A rate or an error that a run lacks (no such trees, nothing found) is
/// left out of the mean; "-" where every run lacks it.
std::string Case_Row(const std::string& name, const std::vector<CaseRun>& runs);

/// Meaning of the columns, printed below the table.
std::string Legend();

}  // namespace sylvomex::demo
