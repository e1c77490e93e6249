// SPDX-License-Identifier: MIT
// Input files shared by the lidar commands.
#pragma once

#include <string>

#include "lidar/tile_grid.h"
#include "overlays/colour_map.h"

namespace sylvomex {

struct Workspace;

/// The colours from "C:\data\JetColorMAP.csv".
ColourMap Read_Colours(const Workspace& w);

/// The tile prefix of a campaign, read from its path header.
std::string Read_Tile_Prefix(const Workspace& w, Campaign campaign);

/// The tile file under the solution, named with the prefix from the campaign's path header.
FilePath Solution_Tile(const Workspace& w, Campaign campaign);

}  // namespace sylvomex
