// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "region/plan_record.h"

namespace sylvomex {

/// Cuts the tasks, in their order, into bundles of about `size` tasks whose costs differ by less
/// than two tasks' costs. Every bundle has at least one task; a size below 1 counts as 1.
std::vector<std::vector<std::string>> Even_Bundles(const std::vector<RegionTask>& tasks, int size);

}  // namespace sylvomex
