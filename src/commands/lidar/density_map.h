// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Draws the pulse density of the 2006 and 2007 tiles into "c:\temp\LiDMap.raw".
void Make_Lidar_Intensity_Map(Workspace& w);

}  // namespace sylvomex
