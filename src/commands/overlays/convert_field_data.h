// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Places the trees of a plot text file in the map and writes them as a binary tree file. A tree
/// that has no stem volume ends the command with an error; the file then holds the trees before
/// it, fewer than its count says.
void ConvertFieldDataToBinary(Workspace& w);

}  // namespace sylvomex
