// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

void Clear_ima(Workspace& w);  // erases all drawings
void Clear_all(Workspace& w);  // also clears observations and ticks

}  // namespace sylvomex
