// SPDX-License-Identifier: MIT
#include "demo/write/stereo_session.h"

#include <gtest/gtest.h>

#include "demo/table/stereo_table.h"
#include "imageblock/expect_failure.h"
#include "support/temporary_folder.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

struct StereoScene : testing::Test {
  Scene scene = Scene_Of({Tree_At(1, Species::Pine, 150, 150)});
  std::vector<Photograph> stereo = Stereo_Photographs(Fly_Over(scene));
  StereoPair pair = Session_Pair(stereo);
};

TEST_F(StereoScene, BothRastersShowAPointOnOneRow) {
  for (const Point3D& point : {Point3D{kForestWest + 20, kForestSouth + 30, 150},
                               {kForestWest + 270, kForestSouth + 9, 175},
                               {kForestWest + 150, kForestSouth + 290, 160}}) {
    const RasterPosition left = Seen_On_Raster(stereo[0], pair, pair.left, point);
    const RasterPosition right = Seen_On_Raster(stereo[1], pair, pair.right, point);
    EXPECT_NEAR(left.row, right.row, 0.02);
    EXPECT_GT(left.col, right.col);
  }
}

TEST_F(StereoScene, APhotographsPixelCornerIsHalfAPixelBeforeItsMiddle) {
  // The shift of half a source pixel of 15 micrometres in rasters of 20.
  const Point3D point{kForestWest + 150, kForestSouth + 150, 150};
  const RasterPosition seen = Seen_On_Raster(stereo[0], pair, pair.left, point);
  const RasterPosition exact = Normal_To_Raster(pair, Object_To_Normal(pair.left, point));
  EXPECT_NEAR(seen.col - exact.col, -0.375, 0.02);
  EXPECT_NEAR(seen.row - exact.row, -0.375, 0.02);
}

TEST_F(StereoScene, TheSessionMeasuresTheTopsThatItTells) {
  const std::string session = Stereo_Session(scene, Fly_Over(scene));
  const std::vector<Point3D> tops = Read_True_Stereo_Tops("say stereo top 1.5 2 3.25\nother\n");
  ASSERT_EQ(tops.size(), 1u);
  EXPECT_EQ(tops[0].Z, 3.25);
  EXPECT_EQ(Stereo_Tops(scene, stereo).size(), 1u);
  EXPECT_NE(session.find("say \"stereo top 2515150.000 6860150.000 170.000\""), std::string::npos);
  EXPECT_LT(session.find("menu Create_anaglyph_pair"), session.find("menu Form5.Open_Pair"));
  EXPECT_LT(session.find("doubleclick Form5.Picture1"), session.find("menu Form5.Save_point_File"));
}

TEST(StereoTable, ComparesPointsWithTopsInTheirOrder) {
  const TemporaryFolder folder;
  const FilePath points = folder.Write("points.txt", "1,10.50,20.00,29.75\n2,.00,1.00,2.00\n");
  const TopDifferences differences = Compare_Stereo_Tops(points, {{10, 20, 30}, {0, 1, 2}});
  EXPECT_EQ(differences.X, (std::vector<double>{0.5, 0}));
  EXPECT_EQ(differences.Y, (std::vector<double>{0, 0}));
  EXPECT_EQ(differences.Z, (std::vector<double>{-0.25, 0}));
}

TEST(StereoTable, AnotherNumberOfPointsIsRejected) {
  const TemporaryFolder folder;
  const FilePath points = folder.Write("points.txt", "1,10.50,20.00,29.75\n2,.00,1.00,2.00\n");
  Expect_Failure(Failure::BadContent, [&] { Compare_Stereo_Tops(points, {{10, 20, 30}}); });
  Expect_Failure(Failure::InputPastEnd, [&] {
    Compare_Stereo_Tops(points, {{10, 20, 30}, {0, 1, 2}, {5, 5, 5}});
  });
}

}  // namespace
}  // namespace sylvomex::demo
