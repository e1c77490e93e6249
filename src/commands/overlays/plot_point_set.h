// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Draws the points of the observation file on every pane.
void Plot_Point_Set(Workspace& w);

}  // namespace sylvomex
