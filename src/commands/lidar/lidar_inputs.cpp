// SPDX-License-Identifier: MIT
#include "commands/lidar/lidar_inputs.h"

#include "lidar/path_header.h"
#include "services/file_names.h"
#include "state/workspace.h"

namespace sylvomex {

ColourMap Read_Colours(const Workspace& w) {
  return Read_Colour_Map(w.Drives.Locate(kColourMapFile));
}

std::string Read_Tile_Prefix(const Workspace& w, Campaign campaign) {
  const std::string year = std::to_string(static_cast<int>(campaign));
  return Read_Path_Header(w.Drives.Locate("c:\\data\\als" + year + "_path.hdr"));
}

FilePath Solution_Tile(const Workspace& w, Campaign campaign) {
  const std::string prefix = Read_Tile_Prefix(w, campaign);
  return w.Drives.Locate(Tile_Name(prefix, campaign, w.Solution3D.X, w.Solution3D.Y));
}

}  // namespace sylvomex
