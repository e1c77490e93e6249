// SPDX-License-Identifier: MIT
#include "demo/write/overlay_session.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "demo/render/stand_cameras.h"
#include "demo/write/exact_text.h"
#include "demo/write/measure_session.h"
#include "demo/write/session_steps.h"
#include "demo/write/truth.h"

namespace sylvomex::demo {
namespace {

constexpr double kDominantHeight = 17;  // metres

constexpr const char* kHeightModels =
    "file c:\\data\\demo\\chm.hdr\nmenu Add_Raster_CHM\n"
    "file c:\\data\\demo\\ground.nod\nfile c:\\data\\demo\\ground.tri\nmenu Add_Tin\n"
    "print Label10\n"
    "file c:\\data\\demo\\canopy.nod\nfile c:\\data\\demo\\canopy.tri\nmenu Add_Tin_CHM\n";

/// The circular plot is drawn at this location; choosing it moves the solution, too.
constexpr const char* kPlotLocation =
    "file c:\\data\\demo\\plot_location.txt\ncommand Set_3D_solution_to_a_new_plot_location\n"
    "print PlotLocation\n";

struct Overlay {
  const char* stage;  // name of its picture
  const char* steps;
};

constexpr Overlay kOverlays[] = {
    {"overlay_lidar_2004", "menu plot_als_bin_file\nprint LidarPlotScale\n"},
    {"overlay_lidar_2006", "menu Print_ALS_near_solution\nprint LidarPulses.Count\n"},
    {"overlay_lidar_2007", "menu Plot_ALS_2007\nprint LidarPulses.Count\n"},
    {"overlay_field_plot", "file c:\\data\\demo\\plot.txt\nmenu Plot_Field_Plot_Data\n"},
    {"overlay_field_trees", "file c:\\data\\demo\\trees.txt\nmenu Plot_Field_measured_tree_data\n"},
    {"overlay_border", "file c:\\data\\demo\\border.txt\nmenu Plot_3D_line_segments\n"},
    {"overlay_circular_plot", "command Plot_Circular_Plot\n"},
    {"overlay_crowns", "command Plot_Crown_polygons\n"},
    {"overlay_tie_points", "menu Plot_Tie_Points\n"},
    {"overlay_polygon", "menu Draw_XYZ_Polygon\n"},
    {"overlay_dem", "menu Test_DEM\n"},
    {"overlay_tin_tiled", "menu Get_TIN_elevation\nprint Label10\n"},
    {"overlay_tin", "menu Get_TIN_DTM_Opt\nprint Label10\n"},
    {"overlay_tin_canopy", "menu Get_TIN_CHM_Elev\nprint Label10\n"},
};

/// The polygon is a mode that stays on until the item is chosen again.
constexpr const char* kModesOff = "menu Draw_XYZ_Polygon\nmenu Clear_ima\n";

std::string Overlay_Steps() {
  std::string text;
  for (const Overlay& overlay : kOverlays) {
    text += overlay.steps + Window_Picture("Form1", overlay.stage) + "menu Clear_ima\n";
  }
  return text + kModesOff;
}

constexpr const char* kFileCommands =
    "file c:\\data\\demo\\points.txt\nmenu Get_Raster_and_TIN_Residuals\n"
    "command Get_TIN_for_Points\n"
    "file c:\\data\\demo\\plot.txt\nfile c:\\data\\demo\\plot.bin\ncommand "
    "ConvertFieldDataToBinary\n";

std::string Lookup_Steps(const Tree& tree) {
  const std::string at = Fixed_Decimals(tree.X, 2) + " " + Fixed_Decimals(tree.Y, 2);
  return "call Get_Raster_Elevation " + at + "\ncall Get_Tin_Elevation " + at +
         " 0\ncall Get_Tin_Elevation_Tiled " + at + " 0\ncall Get_Raster_Chm_Elevation " + at +
         "\ncall Get_Tin_Chm_Elevation " + at + " 0\ncall Tile_Name c:\\data\\laser2006\\ 2006 " +
         at + "\n";
}

std::string Search_Steps(const Tree& tree) {
  return "menu Find_Images_With_XYZ_Sol\n" + Solution_Steps(Breast_Height_Point(tree)) +
         "menu Find_And_Read_Terr_Images_in_Which\nprint ImageCount\nprint Label10\n" +
         Window_Picture("Form1", "overlay_stand_images");
}

bool Is_Shown_By_All(const Scene& scene, const std::vector<Photograph>& photos, std::size_t tree) {
  const std::vector<TopOnPhoto> tops = Tops_On_Photos(scene, photos, tree);
  return std::all_of(tops.begin(), tops.end(), [](const TopOnPhoto& top) { return top.visible; });
}

}  // namespace

std::size_t Overlay_Tree(const Scene& scene, const std::vector<Photograph>& photos) {
  std::optional<std::size_t> nearest;
  double least = 1e30;
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    const Tree& tree = scene.trees[i];
    const double distance =
        std::hypot(tree.X - kForestWest - kForestSide / 2, tree.Y - kForestSouth - kForestSide / 2);
    if (tree.Height() < kDominantHeight || distance >= least) continue;
    if (!Is_Shown_By_All(scene, photos, i)) continue;
    least = distance;
    nearest = i;
  }
  return nearest ? *nearest : Centre_Tree(scene, kDominantHeight);
}

std::string Overlay_Session(const Scene& scene, const std::vector<Photograph>& photos,
                            std::size_t tree) {
  const Tree& shown = scene.trees[tree];
  const Point3D centre = Rough_Point(shown);
  return "# Height models, lidar and field data over the photographs.\n" + Load_Steps(photos) +
         kHeightModels + kPlotLocation + Centre_Steps(centre) +
         Click_Steps(scene, photos, tree, centre) +
         "menu Point_Intersection\nprint Solution3D\nprint Label10\nmenu Center_to_xyz_click\n" +
         Overlay_Steps() + kFileCommands + Lookup_Steps(shown) + Search_Steps(shown);
}

}  // namespace sylvomex::demo
