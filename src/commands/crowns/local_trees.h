// SPDX-License-Identifier: MIT
// The file of stored trees, "C:\data\LK_trees.txt".
#pragma once

namespace sylvomex {

struct Workspace;

/// Stores the pending tree record, if both the lidar fit and the image measure are done, and
/// shows what is stored.
void Save_Local_Tree(Workspace& w);

/// The stored trees on all panes, in the colour of their species, with their numbers.
void Show_Saved_Trees(Workspace& w);

}  // namespace sylvomex
