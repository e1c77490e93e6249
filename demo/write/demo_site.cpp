// SPDX-License-Identifier: MIT
#include "demo/write/demo_site.h"

#include "demo/write/colour_map.h"
#include "demo/write/cursor_file.h"
#include "demo/write/height_rasters.h"
#include "demo/write/image_files.h"
#include "demo/write/match_session.h"
#include "demo/write/measure_session.h"
#include "demo/write/site_folders.h"
#include "demo/write/truth.h"
#include "platform/files.h"

namespace sylvomex::demo {
namespace {

void Write_Beside_Drives(const std::filesystem::path& file, const std::string& content) {
  Write_Whole_File(FilePath{file.string(), file}, content);
}

}  // namespace

void Write_Demo_Site(const Scene& scene, const std::vector<Photograph>& photos,
                     const std::filesystem::path& root) {
  Create_Site_Folders(root);
  const DriveMap drives(root);
  for (const Photograph& photo : photos) Write_Photograph(scene, photo, drives);
  Write_Raster(Make_Ground_Raster(scene), "c:\\data\\demo\\dem.hdr", drives);
  Write_Raster(Make_Canopy_Raster(scene), "c:\\data\\demo\\chm.hdr", drives);
  Write_Whole_File(drives.Locate("C:\\data\\JetColorMAP.csv"), Jet_Colour_Map());
  Write_Whole_File(drives.Locate("c:\\data\\cross04.CUR"), Cross_Cursor(2, 9));
  Write_Whole_File(drives.Locate("c:\\data\\CROSS03.CUR"), Cross_Cursor(3, 14));
  Write_Beside_Drives(root / "truth.csv", Truth_Table(scene, photos));
  Write_Beside_Drives(root / "scene.txt", Scene_Summary(scene, photos));
  Write_Beside_Drives(root / "sessions" / "measure.txt", Measure_Session(scene, photos));
  Write_Beside_Drives(root / "sessions" / "match.txt", Match_Session(scene, photos));
  Write_Beside_Drives(root / "sessions" / "open.txt", Open_Session(scene, photos));
}

}  // namespace sylvomex::demo
