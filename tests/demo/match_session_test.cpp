// SPDX-License-Identifier: MIT
#include "demo/write/match_session.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "demo/write/truth.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

TEST(MatchSession, TheModelTreeIsTheBirchWithTheMostTreesAroundIt) {
  const Scene scene =
      Scene_Of({Tree_At(1, Species::Pine, 150, 150), Tree_At(2, Species::Birch, 150, 165),
                Tree_At(3, Species::Birch, 150, 110), Tree_At(4, Species::Pine, 140, 105),
                Tree_At(5, Species::Spruce, 160, 105)});
  EXPECT_EQ(Model_Tree(scene, Fly_Over(scene)), 2U);
}

TEST(MatchSession, ABirchFarFromTheMiddleIsNotTheModelTree) {
  const Scene scene =
      Scene_Of({Tree_At(1, Species::Birch, 100, 150), Tree_At(2, Species::Birch, 120, 150)});
  EXPECT_EQ(Model_Tree(scene, Fly_Over(scene)), 1U);
}

TEST(MatchSession, WithoutABirchTheModelTreeIsTheDominantOneNearestToTheMiddle) {
  const Scene scene =
      Scene_Of({Tree_At(1, Species::Pine, 100, 150), Tree_At(2, Species::Spruce, 140, 150)});
  EXPECT_EQ(Model_Tree(scene, Fly_Over(scene)), 1U);
}

TEST(MatchSession, TheModelTreeOfTheSiteIsShownByAllPhotographs) {
  const Scene scene = Build_Scene({});
  const std::vector<Photograph> photos = Fly_Over(scene);
  const std::vector<TopOnPhoto> tops = Tops_On_Photos(scene, photos, Model_Tree(scene, photos));
  EXPECT_TRUE(
      std::all_of(tops.begin(), tops.end(), [](const TopOnPhoto& top) { return top.visible; }));
}

TEST(MatchSession, RunsTheChainInItsOrderOnPlotAndModelTree) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const std::string session = Match_Session(scene, Fly_Over(scene));
  std::size_t at = 0;
  for (const char* step :
       {"menu Add_Raster_CHM", "input 150.00\nmenu Set_3D_solution\nmenu Read_plot_center_data",
        "input 170.00\nmenu Set_3D_solution", "menu Capture_templates",
        "menu Compute_Correlation_Images", "menu Create_XYZ_Point_Set",
        "menu Compute_Back_Projections", "menu Find_clusters", "print PlotCenter"}) {
    at = session.find(step, at);
    ASSERT_NE(at, std::string::npos) << step;
  }
}

}  // namespace
}  // namespace sylvomex::demo
