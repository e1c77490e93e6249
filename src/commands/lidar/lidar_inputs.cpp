// SPDX-License-Identifier: MIT
#include "commands/lidar/lidar_inputs.h"

#include <filesystem>
#include <system_error>

#include "lidar/path_header.h"
#include "lidar/pulse_table.h"
#include "platform/files.h"
#include "services/file_names.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {

ColourMap Read_Colours(const Workspace& w) {
  return Read_Colour_Map(w.Drives.Locate(kColourMapFile));
}

std::string Path_Header_Name(Campaign campaign) {
  return "c:\\data\\als" + std::to_string(static_cast<int>(campaign)) + "_path.hdr";
}

std::string Read_Tile_Prefix(const Workspace& w, Campaign campaign) {
  return Read_Path_Header(w.Drives.Locate(Path_Header_Name(campaign)));
}

FilePath Solution_Tile(const Workspace& w, Campaign campaign) {
  const std::string prefix = Read_Tile_Prefix(w, campaign);
  return w.Drives.Locate(Tile_Name(prefix, campaign, w.Solution3D.X, w.Solution3D.Y));
}

bool Is_Missing_Outside(const Workspace& w, const FilePath& tile) {
  const bool is_native = tile.name.starts_with('/');
  if (!is_native || !w.Drives.Drive_Name(tile.native).starts_with('/')) return false;
  std::error_code unreadable;
  const bool has_folder = std::filesystem::is_directory(tile.native.parent_path(), unreadable);
  if (!has_folder || File_Exists(tile)) return false;
  Tell_Cause(w, "there is no tile " + tile.name + ", and none is created outside the drives");
  return true;
}

std::int32_t Read_Tile(Workspace& w, Campaign campaign, const FilePath& tile) {
  if (Is_Missing_Outside(w, tile)) return 0;
  return Named_In(w, Path_Header_Name(campaign),
                  [&] { return Read_Pulse_Tile(tile, w.LidarPulses); });
}

}  // namespace sylvomex
