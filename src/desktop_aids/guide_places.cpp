// SPDX-License-Identifier: MIT
#include "desktop_aids/guide_places.h"

#include <span>

#include "workspace/menu_table.h"

namespace sylvomex {
namespace {

constexpr const char* kGuide = "user-guide.md";
constexpr const char* kKeys = "keys-and-mouse.md";

struct ControlPlace {
  const char* form;
  const char* control;  // empty: all others of the window
  const char* page;
  const char* heading;
};

constexpr ControlPlace kControls[] = {
    {"Form1", "Picture1", kKeys, "The panes"},
    {"Form1", "MeasuredDock", kKeys, "The dock Measured"},
    {"Form1", "OverlaysDock", kKeys, "The dock Overlays"},
    {"Form1", "Strip", kKeys, "The strip below the panes"},
    {"Form1", "Check4", kGuide, "Heights of the surface"},
    {"Form1", "Check5", kGuide, "Crowns"},
    {"Form1", "Check2", kGuide, "Keys"},
    {"Form1", "SpeciesLabel", kGuide, "Keys"},
    {"Form1", "MeasureDistancesCheckBox", kGuide, "The pointer"},
    {"Form1", "Text4", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text5", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text6", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text7", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text8", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text9", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text2", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text3", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "Text10", kGuide, "Finding the tree tops of a plot"},
    {"Form1", "", kGuide, "The window"},
    {"Form2", "", kGuide, "Other services"},
    {"Form3", "", kGuide, "Measuring a point"},
    {"Form4", "", kGuide, ""},
    {"Form5", "", kGuide, "Stereo"},
    {"Form6", "", kGuide, "How good the tree tops are"},
    {"Form7", "", kGuide, "Crowns"},
    {"Form8", "", kGuide, "The map window"},
};

struct MenuPlace {
  const char* menu;  // a row of the main menu: its items, unless one of them stands here itself
  const char* heading;
};

constexpr MenuPlace kMenus[] = {
    {"File", "Other services"},
    {"Opening_Images", "Measuring a point"},
    {"Add_Image_Center_to_XYZ", "Images in which a point is seen"},
    {"Add_Tin_Or_Raster_DEM", "Height models"},
    {"Remove_an_image", "Images in which a point is seen"},
    {"Write_SUB_images", "Orthoimages and other image products"},
    {"Create_Zonal", "Orthoimages and other image products"},
    {"Create_anaglyph_pair", "Stereo"},
    {"Orto", "Orthoimages and other image products"},
    {"Create_an_Ortho_Block_2", "Orthoimages and other image products"},
    {"OrthoBlock", "Orthoimages and other image products"},
    {"Create_An_OrthoIndex", "Orthoimages and other image products"},
    {"Open_Stereo_window", "Stereo"},
    {"Open_Map_Window", "The map window"},
    {"Compute_Points_From_Pairs", "Testing the orientation"},
    {"Compute_initial_apprx", "Testing the orientation"},
    {"Clear", "Field data and overlays"},
    {"Calculate", "Other services"},
    {"Intersection_", "Measuring a point"},
    {"Set_3D_solution_To_Stereo_Sol", "Stereo"},
    {"Crown_Intersection_For_LiDAR", "Crowns"},
    {"Save_measured_point", "Measuring a point"},
    {"Plot_", "Field data and overlays"},
    {"plot_als_bin_file", "Lidar"},
    {"Print_ALS_near_solution", "Lidar"},
    {"Print_ALS_in_ASCII", "Lidar"},
    {"Plot_ALS_2007", "Lidar"},
    {"Plot_Lidar_pdf", "Lidar"},
    {"ConvertFieldDataToBinary", "Field data and overlays"},
    {"Make_Lidar_Intensity_Map", "Lidar"},
    {"Find", "Images in which a point is seen"},
    {"Dem_", "Height models"},
    {"Find_Trees_Based_On_Lidar", "Crowns"},
    {"Find_And_Match_In_Lidar", "Crowns"},
    {"Image_Lidar_Allometry_Algorithm", "Crowns"},
    {"Match_Local_Crown", "Crowns"},
    {"Image", "Finding the tree tops of a plot"},
    {"Show_Results_Window", "How good the tree tops are"},
    {"State", "The pointer"},
    {"Measure_Surface", "Heights of the surface"},
    {"Measure_Triplet", "Heights of the surface"},
    {"Measure_tree_tops_By_Matching", "Crowns"},
    {"Surface_estimation", "Heights of the surface"},
    {"Manipulate_images", "Measuring a point"},
    {"Zoom", "The pointer"},
    {"Window", "Other services"},
    {"Open_About_Window", ""},
};

const char* Heading_Of(std::string_view menu) {
  for (const MenuPlace& place : kMenus) {
    if (menu == place.menu) return place.heading;
  }
  return nullptr;
}

}  // namespace

const std::vector<GuidePage>& Guide_Pages() {
  static const std::vector<GuidePage> pages{{kGuide, "User guide"},
                                            {kKeys, "Keys and mouse"},
                                            {"undo.md", "Undo"},
                                            {"tutorial.md", "Tutorial"},
                                            {"site-import.md", "Import of a site"},
                                            {"file-formats.md", "File formats"},
                                            {"scripted-sessions.md", "Scripted sessions"},
                                            {"what-survives-what.md", "What survives what"}};
  return pages;
}

GuidePlace Place_Of_Control(std::string_view form, std::string_view control) {
  control = control.substr(0, control.find('('));
  GuidePlace of_window{kGuide, ""};
  for (const ControlPlace& place : kControls) {
    if (form != place.form) continue;
    if (control == place.control) return {place.page, place.heading};
    if (std::string_view(place.control).empty()) of_window = {place.page, place.heading};
  }
  return of_window;
}

GuidePlace Place_Of_Command(std::string_view command) {
  const std::span<const MenuRow> rows = Main_Menu();
  std::vector<const char*> headings;  // of the menus above, by level
  for (const MenuRow& row : rows) {
    headings.resize(static_cast<std::size_t>(row.level));
    const char* own = Heading_Of(row.name);
    if (own == nullptr) own = headings.empty() ? "" : headings.back();
    if (command == row.name) return {kGuide, own};
    headings.push_back(own);
  }
  return {kGuide, ""};
}

}  // namespace sylvomex
