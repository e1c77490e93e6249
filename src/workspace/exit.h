// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Asks, then ends the process at once without saving anything.
void Exit(Workspace& w);

}  // namespace sylvomex
