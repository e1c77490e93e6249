// SPDX-License-Identifier: MIT
#include "demo/write/demo_site.h"

#include "demo/render/photo_renderer.h"
#include "demo/render/stand_cameras.h"
#include "demo/scene/surface_photographs.h"
#include "demo/write/camera_tables.h"
#include "demo/write/crown_session.h"
#include "demo/write/cursor_file.h"
#include "demo/write/evaluation_session.h"
#include "demo/write/field_files.h"
#include "demo/write/heath_session.h"
#include "demo/write/height_rasters.h"
#include "demo/write/image_files.h"
#include "demo/write/lidar_files.h"
#include "demo/write/match_session.h"
#include "demo/write/measure_session.h"
#include "demo/write/mesh_files.h"
#include "demo/write/overlay_session.h"
#include "demo/write/product_session.h"
#include "demo/write/site_folders.h"
#include "demo/write/stereo_session.h"
#include "demo/write/surface_session.h"
#include "demo/write/tin_session.h"
#include "demo/write/truth.h"
#include "overlays/jet_colours.h"
#include "platform/files.h"

namespace sylvomex::demo {
namespace {

void Write_Beside_Drives(const std::filesystem::path& file, const std::string& content) {
  Write_Whole_File(FilePath{file.string(), file}, content);
}

void Write_Photographs(const Scene& scene, const std::vector<Photograph>& photos,
                       const std::vector<Photograph>& stand_photos, const DriveMap& drives) {
  for (const Photograph& photo : photos) {
    Write_Photograph(photo, Render_Photograph(scene, photo), drives);
  }
  for (const Photograph& photo : stand_photos) {
    Write_Photograph(photo, Render_Stand_Photograph(scene, photo), drives);
  }
  Write_Whole_File(drives.Locate("c:\\data\\cam_data_j.csv"), Aerial_Camera_Table(photos));
  Write_Whole_File(drives.Locate("c:\\data\\cam_data_G6_j.csv"), Stand_Camera_Table(stand_photos));
}

void Write_Height_Models(const Scene& scene, const DriveMap& drives) {
  Write_Raster(Make_Ground_Raster(scene), "c:\\data\\demo\\dem.hdr", drives);
  Write_Raster(Make_Canopy_Raster(scene), "c:\\data\\demo\\chm.hdr", drives);
  const SurfaceMesh ground = Make_Ground_Mesh(scene);
  Write_Mesh(ground, "ground", drives);
  Write_Mesh_Tiles(ground, drives);
  Write_Mesh(Make_Canopy_Mesh(scene), "canopy", drives);
}

void Write_Surface_Photographs(const Scene& scene, const std::vector<Photograph>& photos,
                               const DriveMap& drives) {
  for (const Photograph& photo : Whole_Image_Photographs(photos)) {
    Write_Whole_File(drives.Locate(photo.header_name), Image_Header_Text(photo.image));
  }
  for (const Photograph& photo : Heath_Photographs(photos)) {
    Write_Photograph(photo, Render_Photograph(scene, photo), drives);
  }
  Write_Raster(Make_Heath_Raster(scene), "c:\\data\\demo\\heath.hdr", drives);
}

void Write_Surface_Sessions(const Scene& scene, const std::vector<Photograph>& photos,
                            const std::filesystem::path& root) {
  const std::filesystem::path sessions = root / "sessions";
  const std::vector<Photograph> forest = Whole_Image_Photographs(photos);
  Write_Beside_Drives(sessions / "surface_points.txt", Surface_Points_Session(scene, forest));
  Write_Beside_Drives(sessions / "surface_pair.txt", Pair_Surface_Session(scene, forest));
  Write_Beside_Drives(sessions / "canopy_triplet.txt", Canopy_Surface_Session(scene, forest));
  const std::vector<Photograph> heath = Heath_Photographs(photos);
  Write_Beside_Drives(sessions / "heath_points.txt", Heath_Points_Session(scene, heath));
  Write_Beside_Drives(sessions / "heath_pair.txt", Heath_Pair_Session(scene, heath));
  Write_Beside_Drives(sessions / "heath_triplet.txt", Heath_Triplet_Session(scene, heath));
  for (const ComparedSurface& surface : Compared_Surfaces(scene)) {
    Write_Whole_File(DriveMap(root).Locate(True_Point_File(surface)), True_Point_List(surface));
    Write_Beside_Drives(sessions / ("tin_" + surface.name + ".txt"), Tin_Session(surface));
  }
}

void Write_Crown_Files(const Scene& scene, const std::vector<Photograph>& photos,
                       const std::filesystem::path& root) {
  const DriveMap drives(root);
  Write_Whole_File(drives.Locate("c:\\data\\exotics\\Exotics.csv"), Crown_List(scene));
  for (const Photograph& whole : Whole_Photographs(photos)) {
    Write_Whole_File(drives.Locate(whole.header_name), Image_Header_Text(whole.image));
  }
  Write_Beside_Drives(root / "sessions" / "crowns.txt", Crown_Session(scene, photos));
  Write_Beside_Drives(root / "sessions" / "multi_size.txt", Multi_Size_Session(scene, photos));
}

}  // namespace

void Write_Demo_Site(const Scene& scene, const std::vector<Photograph>& photos,
                     const std::filesystem::path& root) {
  Create_Site_Folders(root);
  const DriveMap drives(root);
  const std::size_t tree = Overlay_Tree(scene, photos);
  Write_Photographs(scene, photos, Photographs_Around(scene, tree), drives);
  Write_Height_Models(scene, drives);
  Write_Lidar(scene, drives);
  Write_Field_Files(scene, photos, Make_Field_Plot(scene, tree), drives);
  Write_Whole_File(drives.Locate("C:\\data\\JetColorMAP.csv"), Jet_Colour_Map());
  Write_Whole_File(drives.Locate("c:\\data\\cross04.CUR"), Cross_Cursor(2, 9));
  Write_Whole_File(drives.Locate("c:\\data\\CROSS03.CUR"), Cross_Cursor(3, 14));
  Write_Beside_Drives(root / "truth.csv", Truth_Table(scene, photos));
  Write_Beside_Drives(root / "scene.txt", Scene_Summary(scene, photos));
  Write_Beside_Drives(root / "sessions" / "measure.txt", Measure_Session(scene, photos));
  Write_Beside_Drives(root / "sessions" / "first.txt", First_Session(scene, photos));
  Write_Beside_Drives(root / "sessions" / "match.txt", Match_Session(scene, photos));
  Write_Crown_Files(scene, photos, root);
  Write_Beside_Drives(root / "sessions" / "overlays.txt", Overlay_Session(scene, photos, tree));
  Write_Surface_Photographs(scene, photos, drives);
  Write_Surface_Sessions(scene, photos, root);
  Write_Product_Files(scene, photos, drives);
  Write_Beside_Drives(root / "sessions" / "products.txt", Product_Session(scene, photos));
  Write_Beside_Drives(root / "sessions" / "map.txt", Map_Session());
  Write_Beside_Drives(root / "sessions" / "stereo.txt", Stereo_Session(scene, photos));
  Write_Evaluation_Files(scene, photos, drives);
  Write_Beside_Drives(root / "sessions" / "evaluate.txt", Evaluation_Session(scene, photos));
  Write_Beside_Drives(root / "sessions" / "orientation.txt", Orientation_Session());
  Write_Beside_Drives(root / "sessions" / "open.txt", Open_Session(scene, photos));
  Write_Beside_Drives(root / "version.txt", std::to_string(kSiteVersion) + "\n");
}

}  // namespace sylvomex::demo
