// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Draws the points of the observation file on every pane.
void Plot_Point_Set(Workspace& w);

}  // namespace sylvomex
