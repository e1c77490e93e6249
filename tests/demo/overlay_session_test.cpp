// SPDX-License-Identifier: MIT
#include "demo/write/overlay_session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <sstream>

#include "demo/write/truth.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

const std::string& Session() {
  static const std::string text = [] {
    const Scene scene = Build_Scene({});
    const std::vector<Photograph> photos = Fly_Over(scene);
    return Overlay_Session(scene, photos, Overlay_Tree(scene, photos));
  }();
  return text;
}

std::vector<std::string> Lines_With(const std::string& beginning) {
  std::vector<std::string> found;
  std::istringstream lines(Session());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(beginning)) found.push_back(line.substr(beginning.size()));
  }
  return found;
}

TEST(OverlaySession, TheTreeIsTheMostCentralThatAllPhotographsShow) {
  const Scene scene = Build_Scene({});
  const std::vector<Photograph> photos = Fly_Over(scene);
  const auto from_middle = [](const Tree& tree) {
    return std::hypot(tree.X - kForestWest - 150, tree.Y - kForestSouth - 150);
  };
  const std::size_t chosen = Overlay_Tree(scene, photos);
  EXPECT_LT(from_middle(scene.trees[chosen]), 25);
  for (std::size_t i = 0; i < scene.trees.size(); ++i) {
    const auto tops = Tops_On_Photos(scene, photos, i);
    const bool shown = std::all_of(tops.begin(), tops.end(), [](auto& top) { return top.visible; });
    if (i == chosen) {
      EXPECT_TRUE(shown);
    }
    if (!shown || scene.trees[i].Height() < 17) continue;
    EXPECT_GE(from_middle(scene.trees[i]), from_middle(scene.trees[chosen]));
  }
}

TEST(OverlaySession, ALowTreeNearerToTheMiddleIsNotUsed) {
  Scene scene =
      Scene_Of({Tree_At(1, Species::Pine, 100, 150), Tree_At(2, Species::Pine, 140, 150)});
  scene.trees[1].TopZ = 160;
  EXPECT_EQ(Overlay_Tree(scene, Fly_Over(scene)), 0U);
}

TEST(OverlaySession, LoadsMeasuresShowsComparesAndSearchesInThisOrder) {
  std::size_t at = 0;
  for (const char* step : {"menu Add_images_to_set",
                           "menu Add_height_Model",
                           "menu Add_Raster_CHM",
                           "ground.nod\nfile c:\\data\\demo\\ground.tri\nmenu Add_Tin\n",
                           "canopy.nod\nfile c:\\data\\demo\\canopy.tri\nmenu Add_Tin_CHM\n",
                           "command Set_3D_solution_to_a_new_plot_location",
                           "menu Set_3D_solution",
                           "click Picture1(0)",
                           "menu Point_Intersection",
                           "menu plot_als_bin_file",
                           "menu Print_ALS_near_solution",
                           "menu Plot_ALS_2007",
                           "menu Plot_Field_Plot_Data",
                           "menu Plot_Field_measured_tree_data",
                           "menu Plot_3D_line_segments",
                           "command Plot_Circular_Plot",
                           "menu Plot_Tie_Points",
                           "menu Draw_XYZ_Polygon",
                           "menu Test_DEM",
                           "menu Get_TIN_elevation",
                           "menu Get_TIN_DTM_Opt",
                           "menu Get_TIN_CHM_Elev",
                           "menu Get_Raster_and_TIN_Residuals",
                           "call Get_Tin_Elevation_Tiled",
                           "menu Find_Images_With_XYZ_Sol",
                           "menu Set_3D_solution",
                           "menu Find_And_Read_Terr_Images_in_Which"}) {
    at = Session().find(step, at);
    ASSERT_NE(at, std::string::npos) << step;
  }
}

TEST(OverlaySession, TakesAPictureOfEachOverlayAndThenClearsThePanes) {
  const auto pictures = Lines_With("try screenshot Form1 c:\\data\\demo\\");
  EXPECT_EQ(std::set<std::string>(pictures.begin(), pictures.end()).size(), pictures.size());
  EXPECT_GE(pictures.size(), 12U);
  std::size_t at = 0, cleared = 0;
  while ((at = Session().find(".png\nmenu Clear_ima\n", at)) != std::string::npos) {
    ++cleared;
    ++at;
  }
  EXPECT_EQ(cleared + 1, pictures.size()) << "all but the last, of the stand";
}

TEST(OverlaySession, LeavesThePolygonModeOff) {
  std::size_t toggles = 0;
  for (const std::string& step : Lines_With("menu ")) toggles += step == "Draw_XYZ_Polygon" ? 1 : 0;
  EXPECT_EQ(toggles, 2U);
}

}  // namespace
}  // namespace sylvomex::demo
