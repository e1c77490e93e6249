// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Groups the sorted mesh points into tree tops, lists them in a node file and marks them on all
/// panes within the plot's circle.
void Find_clusters(Workspace& w);

}  // namespace sylvomex
