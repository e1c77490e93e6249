// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Fits one crown to the 2006 lidar echoes around the solution, taken as the tree top, and fills
/// the lidar half of the pending tree record.
void Match_Local_Crown(Workspace& w);

}  // namespace sylvomex
