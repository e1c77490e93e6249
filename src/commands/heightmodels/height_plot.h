// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Colours the panes by the height model round the solution.
void Test_DEM(Workspace& w);

}  // namespace sylvomex
