// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Lists the 2006 pulses that hit the crowns of "c:\data\exotics\Exotics.csv".
void Crown_Intersection_For_LiDAR(Workspace& w);

void Find_And_Match_In_Lidar(Workspace& w);

}  // namespace sylvomex
