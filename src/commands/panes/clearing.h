// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

void Clear_ima(Workspace& w);  // erases what was drawn
void Clear_all(Workspace& w);  // that, the observations and the ticks

}  // namespace sylvomex
