// SPDX-License-Identifier: MIT
#include "demo/write/crown_session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "demo/write/match_session.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

TEST(CrownBox, LiesOnTheTreesTileAndAsNearToTheTreeAsThatAllows) {
  Tree tree = Tree_At(1, Species::Pine, 137, 109);
  EXPECT_EQ(Crown_Box_Middle(tree).X, kForestWest + 137);
  EXPECT_EQ(Crown_Box_Middle(tree).Y, kForestSouth + 125);
  tree = Tree_At(1, Species::Pine, 199, 150);
  EXPECT_EQ(Crown_Box_Middle(tree).X, kForestWest + 175);
  EXPECT_EQ(Crown_Box_Middle(tree).Y, kForestSouth + 150);
}

TEST(CrownList, HoldsTheTreesOfTheLidarAreaTileByTile) {
  const Scene scene =
      Scene_Of({Tree_At(1, Species::Birch, 205, 150), Tree_At(2, Species::Pine, 10, 150),
                Tree_At(3, Species::Spruce, 150, 150)});
  EXPECT_EQ(Crown_List(scene),
            "2515150.000,6860150.000,170.000,158.000,2,5.000\n"
            "2515205.000,6860150.000,170.000,158.000,3,5.000\n");
}

TEST(WholePhotographs, ShowTheSamePixelsCountedFromTheRawFilesCorner) {
  const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  const std::vector<Photograph> photos = Fly_Over(scene), whole = Whole_Photographs(photos);
  ASSERT_EQ(whole.size(), 5U);  // the sixth is grey
  for (std::size_t k = 0; k < whole.size(); ++k) {
    const ImageRecord &cut = photos[k].image, &image = whole[k].image;
    const auto in_cut =
        Object_To_Pixel(photos[k].camera, {kForestWest + 150, kForestSouth + 150, 170});
    const auto in_whole =
        Object_To_Pixel(whole[k].camera, {kForestWest + 150, kForestSouth + 150, 170});
    EXPECT_NEAR(in_whole.col, in_cut.col - cut.SubColOrigin, 1e-6);
    EXPECT_NEAR((image.SubHeight - 1) - in_whole.row,
                (cut.FullHeight - 1) - in_cut.row - cut.SubRowOrigin, 1e-6);
    EXPECT_EQ(image.FullWidth, image.SubWidth);
    EXPECT_EQ(image.SubColOrigin, 0);
  }
}

TEST(CrownSession, FitsTheBoxThenTenTreesOfEachSpeciesThenTheList) {
  std::vector<Tree> trees;
  for (int i = 0; i < 36; ++i) {
    trees.push_back(Tree_At(i + 1, static_cast<Species>(i % 3), 60 + 5 * i, 150));
  }
  const Scene scene = Scene_Of(trees);
  const std::string session = Crown_Session(scene, Fly_Over(scene));
  std::istringstream lines(session);
  int local = 0;
  for (std::string line; std::getline(lines, line);)
    local += line.starts_with("say \"local") ? 1 : 0;
  EXPECT_EQ(local, 30);
  EXPECT_LT(session.find("Image_Lidar_Allometry_Algorithm"), session.find("Match_Local_Crown"));
  EXPECT_TRUE(session.ends_with("menu Crown_Intersection_For_LiDAR\n"));
}

TEST(MultiSizeSession, ClicksTreesByTurnsFromTooHighAndTooLow) {
  const Scene scene =
      Scene_Of({Tree_At(1, Species::Birch, 150, 150), Tree_At(2, Species::Pine, 160, 150),
                Tree_At(3, Species::Pine, 150, 165)});
  const std::string session = Multi_Size_Session(scene, Fly_Over(scene));
  std::size_t at = session.find("menu Resize_templates");
  for (const char* step : {"input 173.00\n", "say \"click 1\"", "input 167.00\n", "say \"click 2\"",
                           "input 173.00\n", "say \"click 3\""}) {
    at = session.find(step, at);
    ASSERT_NE(at, std::string::npos) << step;
  }
  EXPECT_NE(session.find("whole5.hdr"), std::string::npos);
  EXPECT_EQ(session.find("whole6.hdr"), std::string::npos);
}

}  // namespace
}  // namespace sylvomex::demo
