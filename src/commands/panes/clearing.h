// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

void Clear_ima(Workspace& w);  // erases what was drawn
void Clear_all(Workspace& w);  // that, the observations and the ticks

}  // namespace sylvomex
