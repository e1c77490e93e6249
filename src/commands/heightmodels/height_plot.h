// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Colours the panes by the height model around the solution.
void Test_DEM(Workspace& w);

}  // namespace sylvomex
