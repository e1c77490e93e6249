// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Asks, then ends the process at once without saving anything.
void Exit(Workspace& w);

}  // namespace sylvomex
