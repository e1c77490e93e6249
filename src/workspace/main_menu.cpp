// SPDX-License-Identifier: MIT
// The rows of the main window's menus, in menu order.
#include "commands/crowns/crown_intersection.h"
#include "commands/crowns/image_lidar_allometry.h"
#include "commands/crowns/match_local_crown.h"
#include "commands/evaluation/results_window.h"
#include "commands/heightmodels/height_plot.h"
#include "commands/heightmodels/model_conversion.h"
#include "commands/heightmodels/raster_commands.h"
#include "commands/heightmodels/tin_commands.h"
#include "commands/heightmodels/tin_points.h"
#include "commands/imageblock/block_maintenance.h"
#include "commands/imageblock/image_search.h"
#include "commands/imageblock/image_set.h"
#include "commands/lidar/als_2004_overlay.h"
#include "commands/lidar/density_map.h"
#include "commands/lidar/echo_rasters.h"
#include "commands/lidar/pulse_listing.h"
#include "commands/lidar/pulse_overlays.h"
#include "commands/mapview/map_window.h"
#include "commands/matching/correlation_images.h"
#include "commands/matching/find_clusters.h"
#include "commands/matching/point_scores.h"
#include "commands/matching/templates.h"
#include "commands/overlays/convert_field_data.h"
#include "commands/overlays/field_plot.h"
#include "commands/overlays/plot_point_set.h"
#include "commands/overlays/vector_overlays.h"
#include "commands/panes/capture.h"
#include "commands/panes/centring.h"
#include "commands/panes/clearing.h"
#include "commands/products/ortho_block.h"
#include "commands/products/ortho_block_2.h"
#include "commands/products/ortho_index.h"
#include "commands/products/orthoimage.h"
#include "commands/products/sub_images.h"
#include "commands/products/zonal_images.h"
#include "commands/solver/batch_orientation.h"
#include "commands/solver/distance_window.h"
#include "commands/solver/epipolar_and_sun.h"
#include "commands/solver/observation_window.h"
#include "commands/solver/point_intersection.h"
#include "commands/solver/solution_control.h"
#include "commands/stereo/anaglyph_pair.h"
#include "commands/stereo/stereo_window.h"
#include "commands/surfaces/polygon_surfaces.h"
#include "commands/surfaces/surface_points.h"
#include "panes/pane_zoom.h"
#include "services/hourglass.h"
#include "workspace/exit.h"
#include "workspace/menu_modes.h"
#include "workspace/menu_table.h"
#include "workspace/operator_event.h"
#include "workspace/options_window.h"

namespace sylvomex {
namespace {

constexpr int kF1 = 112;

template <int Numerator, int Denominator>
void Zoom_To(Workspace& w) {
  Zoom_All_Images(w, static_cast<double>(Numerator) / Denominator);
}

// Only this zoom reads enough rows to need the hourglass.
void Zoom_To_Tenth(Workspace& w) {
  const HourglassGuard hourglass(w);
  Zoom_To<1, 10>(w);
}

template <int Item>
void Toggle_Gamma_Item(Workspace& w) {
  Toggle_Gamma(w, Item);
}

template <int Item>
bool* Gamma_Check(Workspace& w) {
  return &w.Menu.Gamma(Item);
}

template <bool MenuChecks::*Mode>
bool* Mode_Check(Workspace& w) {
  return &(w.Menu.*Mode);
}

// clang-format off
constexpr MenuRow kMainMenu[] = {
    // level, name, caption, key, shift, greyed, role, handler, check mark
    {0, "File", "File", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Opening_Images", "Opening images", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Open_a_set", "Open_an_image_set (*.set)", 0, 0, true, MenuRole::Command, Open_a_set, nullptr},
    {2, "Add_images_to_set", "Add an image to set (*.hdr)", 'D', kCtrl, false, MenuRole::Command, Add_images_to_set, nullptr},
    {2, "Add_Image_Center_to_XYZ", "Add Image Center to XYZ", kF1 + 1, 0, false, MenuRole::Command, Add_Image_Center_to_XYZ, nullptr},
    {1, "Add_Tin_Or_Raster_DEM", "Add Tin or Raster Height Models", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Add_height_Model", "Add Raster elevation (DEM) model (*.hdr)", 0, 0, false, MenuRole::Command, Add_height_Model, nullptr},
    {2, "Add_Raster_CHM", "Add Raster canopy height (CHM) model", 0, 0, false, MenuRole::Command, Add_Raster_CHM, nullptr},
    {2, "Add_Tin", "Add TIN elevation (DEM) model (*.hdr)", 0, 0, false, MenuRole::Command, Add_Tin, nullptr},
    {2, "Add_Tin_CHM", "Add TIN canopy Height (CHM) Model", 0, 0, false, MenuRole::Command, Add_Tin_CHM, nullptr},
    {1, "Remove_an_image", "Remove an image from the set", kF1 + 2, 0, false, MenuRole::Command, Remove_an_image, nullptr},
    {1, "Write_SUB_images", "Write Subimages (RAW and HDR)", 0, 0, false, MenuRole::Command, Write_SUB_images, nullptr},
    {1, "Create_Zonal", "Create a Zonal image (PGMTexture)", 0, 0, true, MenuRole::Command, Create_Zonal, nullptr},
    {1, "Create_anaglyph_pair", "Create anaglyph pair", 0, 0, false, MenuRole::Command, Create_anaglyph_pair, nullptr},
    {1, "Orto", "Create an OrthoImage", 0, 0, false, MenuRole::Command, Orto, nullptr},
    {1, "Create_an_Ortho_Block_2", "Create an OrtoBlock (2)", 0, 0, false, MenuRole::Command, Create_an_Ortho_Block_2, nullptr},
    {1, "OrthoBlock", "Create an OrthoBlock", 0, 0, false, MenuRole::Command, OrthoBlock, nullptr},
    {1, "Create_An_OrthoIndex", "Create an OrthoIndex", 0, 0, false, MenuRole::Command, Create_An_OrthoIndex, nullptr},
    {1, "Open_Stereo_window", "Open stereo window", 0, 0, false, MenuRole::Command, Open_Stereo_window, nullptr},
    {1, "Open_Map_Window", "Open Map window", 0, 0, false, MenuRole::Command, Open_Map_Window, nullptr},
    {1, "Open_Options_Window", "Open Options Window", 'O', kCtrl, false, MenuRole::Command, Open_Options_Window, nullptr},
    {1, "Compute_Points_From_Pairs", "Compute_Points_From_Pairs", 0, 0, true, MenuRole::Command, Compute_Points_From_Pairs, nullptr},
    {1, "Compute_initial_apprx", "Compute Initial APRX", 0, 0, false, MenuRole::Command, Compute_initial_apprx, nullptr},
    {1, "Exit", "Exit Program", 0, 0, false, MenuRole::Command, Exit, nullptr},
    {0, "Clear", "Edit", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Clear_ima", "Clear images", 'C', kCtrl, false, MenuRole::Command, Clear_ima, nullptr},
    {1, "Clear_all", "Clear images, remove image obs & Widths", 'A', kCtrl, false, MenuRole::Command, Clear_all, nullptr},
    {0, "Calculate", "3D", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Intersection_", "Intersection", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Point_Intersection", "Point Intersection, N>1 images", 'I', kCtrl, false, MenuRole::Command, Point_Intersection, nullptr},
    {2, "Single_Photo_intersection", "Point intersection, N=1, XY conditioned on Z", 0, 0, false, MenuRole::Command, Single_Photo_intersection, nullptr},
    {2, "Set_3D_Sol_File", "Set 3D-solution to a given XYZ (File)", kF1, 0, false, MenuRole::Command, Set_3D_Sol_File, nullptr},
    {2, "Set_3D_solution", "Set 3D-solution to a given XYZ (Query)", 0, 0, false, MenuRole::Command, Set_3D_solution, nullptr},
    {2, "Set_3D_solution_To_Stereo_Sol", "Set 3D-solution to STEREO XYZ", 0, 0, false, MenuRole::Command, Set_3D_solution_To_Stereo_Sol, nullptr},
    {2, "Set_3D_solution_to_a_new_plot_location", "Set 3D-solution to a new plot location", kF1, kCtrl, true, MenuRole::Command, Set_3D_solution_to_a_new_plot_location, nullptr},
    {2, "Crown_Intersection_For_LiDAR", "Crown Intersection For LiDAR", 0, 0, false, MenuRole::Command, Crown_Intersection_For_LiDAR, nullptr},
    {2, "Reset_Point_Solution", "Reset (X,Y,Z) - solution", 0, 0, false, MenuRole::Command, Reset_Point_Solution, nullptr},
    {1, "Save_measured_point", "Save measured point", kF1 + 11, kShift, false, MenuRole::Command, Save_measured_point, nullptr},
    {1, "Save_XY_Distances", "Save XY-distances", 'S', kCtrl, false, MenuRole::Command, Save_XY_Distances, nullptr},
    {1, "Plot_", "Plot", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Epipolar_line", "Plot epipolar line based on last image clicked", 'L', kCtrl, false, MenuRole::Command, Epipolar_line, nullptr},
    {2, "Plot_Point_Set", "Plot PointSet File", 'P', kCtrl, false, MenuRole::Command, Plot_Point_Set, nullptr},
    {2, "Plot_Circular_Plot", "Plot Circular plot", kF1, kShift, true, MenuRole::Command, Plot_Circular_Plot, nullptr},
    {2, "Plot_3D_line_segments", "Plot 3D-line segments (LMs)", 'B', kCtrl, false, MenuRole::Command, Plot_3D_line_segments, nullptr},
    {2, "Plot_Field_measured_tree_data", "Plot Field Measured Tree Data", 'F', kCtrl, false, MenuRole::Command, Plot_Field_measured_tree_data, nullptr},
    {2, "Plot_Crown_polygons", "Plot crown polygons (HitPols)", 0, 0, true, MenuRole::Command, Plot_Crown_polygons, nullptr},
    {2, "plot_als_bin_file", "Plot 2004 LiDAR", kF1 + 8, 0, false, MenuRole::Command, plot_als_bin_file, nullptr},
    {2, "Print_ALS_near_solution", "Plot 2006 LiDAR", 0, 0, false, MenuRole::Command, Print_ALS_near_solution, nullptr},
    {2, "Print_ALS_in_ASCII", "Print 2006 in ASCII", 0, 0, false, MenuRole::Command, Print_ALS_in_ASCII, nullptr},
    {2, "Plot_ALS_2007", "Plot 2007 LiDAR", 0, 0, false, MenuRole::Command, Plot_ALS_2007, nullptr},
    {2, "Plot_Lidar_pdf", "Plot 2006 Lidar pdf", 0, 0, false, MenuRole::Command, Plot_Lidar_pdf, nullptr},
    {2, "Plot_Field_Plot_Data", "Plot Field plot data", 'Q', kCtrl, false, MenuRole::Command, Plot_Field_Plot_Data, nullptr},
    {2, "Plot_Tie_Points", "Plot Tie Points", 0, 0, false, MenuRole::Command, Plot_Tie_Points, nullptr},
    {1, "ConvertFieldDataToBinary", "Convert Field plot data into Binary", 0, 0, true, MenuRole::Command, ConvertFieldDataToBinary, nullptr},
    {1, "Make_Lidar_Intensity_Map", "Make LiDAR Intensity Map", 0, 0, false, MenuRole::Command, Make_Lidar_Intensity_Map, nullptr},
    {1, "Find", "Find", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Find_Images_With_XYZ_Sol", "Find Aerial images in which point is Visible", 0, 0, false, MenuRole::Command, Find_Images_With_XYZ_Sol, nullptr},
    {2, "Find_And_Read_Terr_Images_in_Which", "Find Terr images in which point is Visible", kF1 + 7, 0, false, MenuRole::Command, Find_And_Read_Terr_Images_in_Which, nullptr},
    {1, "Dem_", "DEM", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Get_elevation", "Get Raster-DTM elevation", 'Z', kCtrl, false, MenuRole::Command, Get_elevation, nullptr},
    {2, "Get_Raster_CHM_Elevation", "Get Raster CHM elevation", 0, 0, false, MenuRole::Command, Get_Raster_CHM_Elevation, nullptr},
    {2, "Get_TIN_elevation", "Get TIN-DTM elevation", 'T', kCtrl, false, MenuRole::Command, Get_TIN_elevation, nullptr},
    {2, "Get_TIN_DTM_Opt", "Get TIN-DTM elevation (opt)", 0, 0, false, MenuRole::Command, Get_TIN_DTM_Opt, nullptr},
    {2, "Get_TIN_CHM_Elev", "Get TIN-CHM elevation", 'E', kCtrl, false, MenuRole::Command, Get_TIN_CHM_Elev, nullptr},
    {2, "Get_Raster_and_TIN_Residuals", "Get Raster and TIN Residuals", 0, 0, false, MenuRole::Command, Get_Raster_and_TIN_Residuals, nullptr},
    {2, "Test_DEM", "Plot (Test) DEM", kF1 + 11, 0, false, MenuRole::Command, Test_DEM, nullptr},
    {2, "Create_raster_DEM_from_TIN_DEM", "Create raster DEM from TIN-DEM", 0, 0, false, MenuRole::Command, Create_raster_DEM_from_TIN_DEM, nullptr},
    {2, "TIN2RASTER_Fast", "TIN2RASTER fast", 0, 0, false, MenuRole::Command, TIN2RASTER_Fast, nullptr},
    {2, "Create_raster_CHM_from_TIN_CHM", "Create raster CHM from TIN-CHM", 0, 0, true, MenuRole::Command, Create_raster_CHM_from_TIN_CHM, nullptr},
    {2, "Create_CHM_from_ALS", "Create CHM from ALS", 0, 0, true, MenuRole::Command, Create_CHM_from_ALS, nullptr},
    {2, "Get_TIN_for_Points", "Get TIN elevation for points", 0, 0, true, MenuRole::Command, Get_TIN_for_Points, nullptr},
    {1, "Find_Trees_Based_On_Lidar", "Find Trees Based on Lidar", 0, 0, true, MenuRole::Command, Find_Trees_Based_On_Lidar, nullptr},
    {1, "Find_And_Match_In_Lidar", "Find and Match in Lidar", kF1 + 4, 0, true, MenuRole::Command, Find_And_Match_In_Lidar, nullptr},
    {1, "Image_Lidar_Allometry_Algorithm", "Image Lidar Allometry Algorithm", 0, 0, true, MenuRole::Command, Image_Lidar_Allometry_Algorithm, nullptr},
    {1, "Match_Local_Crown", "Match Local Crown", kF1 + 3, 0, false, MenuRole::Command, Match_Local_Crown, nullptr},
    {1, "Get_angles", "Get angular orientation (image-object-sun)", 0, 0, false, MenuRole::Command, Get_angles, nullptr},
    {1, "Cast_sun_ray", "Cast sun ray from solution point", 0, 0, false, MenuRole::Command, Cast_sun_ray, nullptr},
    {0, "Image", "Image matching", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Read_plot_center_data", "Read data for plotcenter", 0, 0, false, MenuRole::Command, Read_plot_center_data, nullptr},
    {1, "Capture_templates", "Capture templates around XYZ sol", 'X', kCtrl, false, MenuRole::Command, Capture_templates, nullptr},
    {1, "Resize_templates", "Resize_templates", 0, 0, false, MenuRole::Command, Resize_templates, nullptr},
    {1, "Compute_Correlation_Images", "Compute correlation images", 'Y', kCtrl, false, MenuRole::Command, Compute_Correlation_Images, nullptr},
    {1, "Create_XYZ_Point_Set", "Create XYZ-point set", 'G', kCtrl, false, MenuRole::Command, Create_XYZ_Point_Set, nullptr},
    {1, "Compute_Back_Projections", "Compute Back-projections (form correspondence data)", 'N', kCtrl, false, MenuRole::Command, Compute_Back_Projections, nullptr},
    {1, "Find_clusters", "Find clusters", 'W', kCtrl, false, MenuRole::Command, Find_clusters, nullptr},
    {1, "Show_Results_Window", "Show Results Window", 'R', kCtrl, false, MenuRole::Command, Show_Results_Window, nullptr},
    {0, "State", "State", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Draw_Polygon", "Draw polygon", 0, 0, false, MenuRole::Command, Toggle_Draw_Polygon, Mode_Check<&MenuChecks::Draw_Polygon>},
    {1, "Draw_XYZ_Polygon", "Draw XY-polygon given Z", 0, 0, false, MenuRole::Command, Toggle_Draw_XYZ_Polygon, Mode_Check<&MenuChecks::Draw_XYZ_Polygon>},
    {1, "Measure_Surface", "Measure surface points (pair)", 0, 0, false, MenuRole::Command, Toggle_Measure_Surface, Mode_Check<&MenuChecks::Measure_Surface>},
    {1, "Measure_Triplet", "Measure surface points (triplet)", 0, 0, false, MenuRole::Command, Toggle_Measure_Triplet, Mode_Check<&MenuChecks::Measure_Triplet>},
    {1, "Measure_tree_tops_By_Matching", "Measure tree tops (Multi TM Matching)", 0, 0, false, MenuRole::Command, Toggle_Measure_tree_tops_By_Matching, Mode_Check<&MenuChecks::Measure_tree_tops_By_Matching>},
    {1, "Measure_Tie_and_CP", "Measure Tie and CP", 0, 0, false, MenuRole::Command, Toggle_Measure_Tie_and_CP, Mode_Check<&MenuChecks::Measure_Tie_and_CP>},
    {0, "Surface_estimation", "Surface matching", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Get_Surface_Height", "Get surface single point (pair)", 0, 0, false, MenuRole::Command, Get_Surface_Height, nullptr},
    {1, "Get_surface_single_point_triplet", "Get surface single point (triplet)", 0, 0, false, MenuRole::Command, Get_surface_single_point_triplet, nullptr},
    {1, "Get_Surface_Height_InCdll", "Get surface in a polygon", kF1 + 6, 0, false, MenuRole::Command, Get_Surface_Height_InCdll, nullptr},
    {1, "Triplet_Matching", "Triple image matching", 0, 0, false, MenuRole::Command, Triplet_Matching, nullptr},
    {0, "Manipulate_images", "Pan", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Center_to_xyz_click", "Center images to space intersection (X,Y,Z) solution", 'M', kCtrl, false, MenuRole::Command, Center_to_xyz_click, nullptr},
    {1, "Center_to_pan_center_click", "Center images to given (X,Y,Z) (Options)", 0, 0, false, MenuRole::Command, Center_to_pan_center_click, nullptr},
    {1, "Center_To_Sub_c_click", "Center images to given row,col values", 0, 0, false, MenuRole::Command, Center_To_Sub_c_click, nullptr},
    {1, "Center_To_Q", "Center to query", 0, 0, false, MenuRole::Command, Center_To_Q, nullptr},
    {1, "Capture", "Capture", kF1 + 5, 0, false, MenuRole::Command, Capture, nullptr},
    {0, "Zoom", "Zoom", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Zoom_out", "Zoom Out ", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Zoom_1_1", "Zoom (1:1) (100%)", 0, 0, false, MenuRole::Command, Zoom_To<1, 1>, nullptr},
    {2, "Zoom_1_2", "Zoom (1:2) (50 %)", 0, 0, false, MenuRole::Command, Zoom_To<1, 2>, nullptr},
    {2, "Zoom_1_3", "Zoom (1:3) (33 %)", 0, 0, false, MenuRole::Command, Zoom_To<1, 3>, nullptr},
    {2, "Zoom1_4", "Zoom (1:4) (25 %)", 0, 0, false, MenuRole::Command, Zoom_To<1, 4>, nullptr},
    {2, "Zoom1_6", "Zoom (1:6) (16.7 %)", 0, 0, false, MenuRole::Command, Zoom_To<1, 6>, nullptr},
    {2, "Zoom1_10", "Zoom (1:10) (10 %)", 0, 0, false, MenuRole::Command, Zoom_To_Tenth, nullptr},
    {1, "ZoomIn", "Zoom In", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {2, "Zoom_1_1b", "Zoom (1:1) (100 %)", 0, 0, false, MenuRole::Command, Zoom_To<1, 1>, nullptr},
    {2, "Zoom2_1", "Zoom (2:1) (200 %)", 0, 0, false, MenuRole::Command, Zoom_To<2, 1>, nullptr},
    {2, "Zoom3_1", "Zoom (3:1) (300 %)", 0, 0, false, MenuRole::Command, Zoom_To<3, 1>, nullptr},
    {2, "Zoom4_1", "Zoom (4:1) (400 %)", 0, 0, false, MenuRole::Command, Zoom_To<4, 1>, nullptr},
    {2, "Zoom6_1", "Zoom (6:1) (600 %)", 0, 0, false, MenuRole::NoAction, nullptr, nullptr},
    {2, "Zoom10_1", "Zoom (10:1) (1000%)", 0, 0, false, MenuRole::NoAction, nullptr, nullptr},
    {0, "Window", "Window", 0, 0, false, MenuRole::Submenu, nullptr, nullptr},
    {1, "Gamma_1", "Gamma correct too dark (1) (Extreme)", 0, 0, false, MenuRole::Command, Toggle_Gamma_Item<1>, Gamma_Check<1>},
    {1, "Gamma_2", "Gamma correct too dark (2) (Medium)", 0, 0, false, MenuRole::Command, Toggle_Gamma_Item<2>, Gamma_Check<2>},
    {1, "Gamma_3", "Gamma correct too dark (3) (Low)", 0, 0, false, MenuRole::Command, Toggle_Gamma_Item<3>, Gamma_Check<3>},
    {1, "Gamma_4", "Gamma correct too light (4) (Low)", 0, 0, false, MenuRole::Command, Toggle_Gamma_Item<4>, Gamma_Check<4>},
    {1, "Gamma_5", "Gamma correct too light (5) (Medium)", 0, 0, false, MenuRole::Command, Toggle_Gamma_Item<5>, Gamma_Check<5>},
    {1, "Gamma_6", "Gamma correct too light (6) (Extreme)", 0, 0, false, MenuRole::Command, Toggle_Gamma_Item<6>, Gamma_Check<6>},
    {0, "Open_About_Window", "About", 0, 0, false, MenuRole::Command, Open_About_Window, nullptr},
};
// clang-format on

}  // namespace

std::span<const MenuRow> Main_Menu() { return kMainMenu; }

}  // namespace sylvomex
