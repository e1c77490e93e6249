// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace sylvomex {

struct Workspace;

/// Indices of the images whose Check1 is ticked, ascending.
std::vector<int> Ticked_Images(const Workspace& w);

}  // namespace sylvomex
