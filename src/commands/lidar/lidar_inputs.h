// SPDX-License-Identifier: MIT
// Input files shared by the lidar commands.
#pragma once

#include <cstdint>
#include <string>

#include "lidar/tile_grid.h"
#include "overlays/colour_map.h"

namespace sylvomex {

struct Workspace;

/// The colours from "C:\data\JetColorMAP.csv".
ColourMap Read_Colours(const Workspace& w);

/// The drive name of a campaign's path header.
std::string Path_Header_Name(Campaign campaign);

/// The tile prefix of a campaign, read from its path header.
std::string Read_Tile_Prefix(const Workspace& w, Campaign campaign);

/// The tile file under the solution, named with the prefix from the campaign's path header.
FilePath Solution_Tile(const Workspace& w, Campaign campaign);

/// True for a tile that does not exist in an existing folder outside the drives, where no command
/// creates one: it counts as a tile without pulses. The cause is told.
bool Is_Missing_Outside(const Workspace& w, const FilePath& tile);

/// Reads a tile into LidarPulses and returns its count. A missing one on a drive is created empty.
/// Behind a failure the campaign's path header is told, which holds the tile's folder.
std::int32_t Read_Tile(Workspace& w, Campaign campaign, const FilePath& tile);

}  // namespace sylvomex
