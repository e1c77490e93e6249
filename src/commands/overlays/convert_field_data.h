// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Converts the trees of a plot text file to map coordinates and writes them as a binary tree file.
/// A tree without a defined stem volume ends the command with an error; the file then contains the
/// trees before it, fewer than its count states.
void ConvertFieldDataToBinary(Workspace& w);

}  // namespace sylvomex
