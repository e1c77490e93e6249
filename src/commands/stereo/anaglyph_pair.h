// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

void Create_anaglyph_pair(Workspace& w);  // images 0 and 1 as a normal-case pair

}  // namespace sylvomex
