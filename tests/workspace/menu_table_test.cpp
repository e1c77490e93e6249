// SPDX-License-Identifier: MIT
#include "workspace/menu_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/session_run.h"
#include "support/small_site.h"

namespace sylvomex {
namespace {

TEST(MainMenu, Has127RowsWithUniqueNames) {
  std::set<std::string> names;
  for (const MenuRow& row : Main_Menu()) names.insert(row.name);
  EXPECT_EQ(Main_Menu().size(), 127U);
  EXPECT_EQ(names.size(), 127U);
}

TEST(MainMenu, LevelsNeverSkipAndSubmenusHaveItems) {
  int previous = -1;
  for (const MenuRow& row : Main_Menu()) {
    EXPECT_LE(row.level, previous + 1) << row.name;
    previous = row.level;
  }
  const auto rows = Main_Menu();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool has_items = i + 1 < rows.size() && rows[i + 1].level > rows[i].level;
    EXPECT_EQ(has_items, rows[i].role == MenuRole::Submenu) << rows[i].name;
  }
}

TEST(MainMenu, ThirteenItemsAreGreyed) {
  const std::set<std::string> expected = {"Open_a_set",
                                          "Create_Zonal",
                                          "Compute_Points_From_Pairs",
                                          "Set_3D_solution_to_a_new_plot_location",
                                          "Plot_Circular_Plot",
                                          "Plot_Crown_polygons",
                                          "ConvertFieldDataToBinary",
                                          "Create_raster_CHM_from_TIN_CHM",
                                          "Create_CHM_from_ALS",
                                          "Get_TIN_for_Points",
                                          "Find_Trees_Based_On_Lidar",
                                          "Find_And_Match_In_Lidar",
                                          "Image_Lidar_Allometry_Algorithm"};
  std::set<std::string> greyed;
  for (const MenuRow& row : Main_Menu()) {
    if (row.greyed) greyed.insert(row.name);
  }
  EXPECT_EQ(greyed, expected);
}

TEST(MainMenu, AcceleratorsMatchTheHandWrittenListAndServeOneItemEach) {
  std::map<std::string, std::string> keys;
  for (const MenuRow& row : Main_Menu()) {
    if (row.key_code == 0) continue;
    EXPECT_TRUE(keys.emplace(Key_Text(row), row.name).second) << row.name;
  }
  EXPECT_EQ(keys.at("Ctrl+D"), "Add_images_to_set");
  EXPECT_EQ(keys.at("Ctrl+I"), "Point_Intersection");
  EXPECT_EQ(keys.at("Shift+F12"), "Save_measured_point");
  EXPECT_EQ(keys.at("Ctrl+F1"), "Set_3D_solution_to_a_new_plot_location");
  EXPECT_EQ(keys.at("F1"), "Set_3D_Sol_File");
  EXPECT_EQ(keys.at("Ctrl+M"), "Center_to_xyz_click");
  EXPECT_EQ(keys.at("F12"), "Test_DEM");
}

TEST(MainMenu, CaptionsAreExactlyTheseTexts) {
  EXPECT_STREQ(Find_Menu_Row("Form1", "Open_a_set")->caption, "Open_an_image_set (*.set)");
  EXPECT_STREQ(Find_Menu_Row("Form1", "Zoom_out")->caption, "Zoom Out ");
  EXPECT_STREQ(Find_Menu_Row("Form1", "Zoom_1_1")->caption, "Zoom (1:1) (100%)");
  EXPECT_STREQ(Find_Menu_Row("Form1", "Zoom_1_1b")->caption, "Zoom (1:1) (100 %)");
  EXPECT_STREQ(Find_Menu_Row("Form1", "Get_angles")->caption,
               "Get angular orientation (image-object-sun)");
}

TEST(MainMenu, OnlyTheTwoWidestZoomsHaveNoAction) {
  std::vector<std::string> idle;
  for (const MenuRow& row : Main_Menu()) {
    if (row.role == MenuRole::NoAction) idle.push_back(row.name);
  }
  EXPECT_EQ(idle, (std::vector<std::string>{"Zoom6_1", "Zoom10_1"}));
}

TEST(MainMenu, ZoomsOfSixAndTenToOneDoNothing) {
  SmallSite site;
  const PlayedSession played =
      Play_Script(site.Folder(), "menu Zoom6_1\nmenu Zoom10_1\nsay done\n");
  EXPECT_EQ(played.status, 0);
  EXPECT_EQ(played.transcript, "say done\n");
}

TEST(MainMenu, AGreyedItemIsNotRunButItsCommandCanBe) {
  SmallSite site;
  const PlayedSession greyed = Play_Script(site.Folder(), "menu Open_a_set\n");
  EXPECT_EQ(greyed.status, 1);
  EXPECT_EQ(greyed.transcript, "greyed Open_a_set\n");
  const PlayedSession run = Play_Script(site.Folder(), "command Open_a_set\n");
  EXPECT_EQ(run.transcript,
            "message \"This functionality is disabled!\" title=\"\" buttons=ok -> ok\n");
}

TEST(Exit, CancelLeavesEveryStateUnchanged) {
  SmallSite site;
  const PlayedSession played = Play_Script(
      site.Folder(), "button cancel\nmenu Exit\nprint ImageCount\nprint NextMeasurementNumber\n");
  EXPECT_EQ(played.status, 0);
  EXPECT_EQ(played.transcript,
            "message \"Do you wish to exit?\" title=\"3D-measurements\" buttons=ok,cancel -> "
            "cancel\nImageCount = 0\nNextMeasurementNumber = 1\n");
}

TEST(Exit, OkEndsTheSessionThere) {
  SmallSite site;
  const PlayedSession played = Play_Script(site.Folder(), "button ok\nmenu Exit\nsay never\n");
  EXPECT_EQ(played.status, 0);
  EXPECT_EQ(played.transcript.find("never"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex
