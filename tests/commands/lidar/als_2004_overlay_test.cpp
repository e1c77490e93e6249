// SPDX-License-Identifier: MIT
#include "commands/lidar/als_2004_overlay.h"

#include <gtest/gtest.h>

#include "commands/lidar/lidar_block.h"
#include "panes/pane_drawing.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr double kX = LidarBlock::kX, kY = LidarBlock::kY;

struct Als2004 : LidarBlock, testing::Test {
  Als2004() { Load_Flat_Ground(); }

  void Write_Records(const std::vector<Test2004Record>& records) {
    folder.Write("c/als2004/024_020.bin", Counted_Bytes(records));
  }
  void Write_Points(const std::vector<TestPoint>& points) {
    folder.Write("e/rovik/alue_b_8_lidar.bin", Counted_Bytes(points));
  }
  static Test2004Record Last(double X, double Y, float Z) { return {1, 2, 3, X, Y, Z}; }
};

TEST_F(Als2004, DrawsLastEchoesNearerThanAMetreByTheirHeight) {
  // 0.18 m are added. Heights: -0.82 -> 0: 42.5 -> 42 -> row 10; 0.38: 123.25 -> 123 -> 30.75
  // -> row 31; 20.18 -> 0.98: 250.75 -> 251 -> row 63.
  Write_Records({Last(kX, kY, 99), Last(kX + 0.5, kY, 100.2F), Last(kX, kY + 0.99, 120),
                 Last(kX + 1, kY, 100), Last(kX + 0.8, kY + 0.8, 100)});
  plot_als_bin_file(w);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 3U);
    Expect_Point(k, 0, {kX, kY, 99.0F + 0.18F}, 10, 2);
    Expect_Point(k, 1, {kX + 0.5, kY, 100.2F + 0.18F}, 31, 2);
    Expect_Point(k, 2, {kX, kY + 0.99, 120.0F + 0.18F}, 63, 2);
    const Picture& pane = w.Form1.Picture1(k);
    EXPECT_EQ(pane.ForeColor, kYellow);
    EXPECT_EQ(pane.font.size, 8);
    EXPECT_FALSE(pane.font.bold);
  }
  EXPECT_EQ(w.LidarPlotScale, 40);
  EXPECT_EQ(folder.Read("c/data/2004_lidar.txt"), "");
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Als2004, TheCorrectionIsAddedInSinglePrecision) {
  Write_Records({Last(kX, kY, 100.3F)});
  plot_als_bin_file(w);
  const float Z = 100.3F + 0.18F;
  const PanePosition at = Overlay_Of_Point(w, 0, {kX, kY, Z});
  ASSERT_EQ(Marks(0).size(), 1U);
  EXPECT_EQ(Marks(0)[0].x1, at.px);
  EXPECT_EQ(Marks(0)[0].y1, at.py);
}

TEST_F(Als2004, APaneWithoutANearEchoKeepsItsPen) {
  w.Form1.Picture1(0).font.bold = true;
  w.Form1.Picture1(0).DrawWidth = 5;
  Write_Records({Last(kX + 5, kY, 100)});
  plot_als_bin_file(w);
  EXPECT_TRUE(Marks(0).empty());
  EXPECT_TRUE(w.Form1.Picture1(0).font.bold);
  EXPECT_EQ(w.Form1.Picture1(0).DrawWidth, 5);
}

TEST_F(Als2004, WithoutAGroundModelItAsksForOne) {
  w.RasterDemLoaded = false;
  plot_als_bin_file(w);
  EXPECT_EQ(screen.messages, std::vector<std::string>{"Read raster DEM first"});
  EXPECT_EQ(w.LidarPlotScale, 0);
  EXPECT_FALSE(folder.Has("c/data/2004_lidar.txt"));
}

TEST_F(Als2004, AMissingTileIsCreatedEmpty) {
  plot_als_bin_file(w);
  EXPECT_EQ(folder.Read("c/als2004/024_020.bin"), "");
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(Als2004, AnyFailureIsOneMessage) {
  const std::vector<std::string> message = {"An error has occurred!"};
  folder.Write("c/als2004/024_020.bin", Announced_Bytes(2, 150));
  plot_als_bin_file(w);
  EXPECT_EQ(screen.messages, message);
  screen.messages.clear();
  std::filesystem::remove(folder.Path() / "c/data/als2004_path.hdr");
  plot_als_bin_file(w);
  EXPECT_EQ(screen.messages, message);
  screen.messages.clear();
  std::filesystem::remove(folder.Path() / "c/data/JetColorMAP.csv");
  Plot_Lidar_Of_Site(w, kSiteRovik);
  EXPECT_EQ(screen.messages, message);
}

TEST_F(Als2004, RovikDrawsHighPointsInABoxByIntegerMetres) {
  // Heights: 12.5 -> 12 (even): (12 - 10) x 17 = 34 -> 8.5 -> row 8; 10 is not above 10;
  // 30 -> 24.98: 254.66 -> 255 -> 253 -> row 63; 17.6 -> 18: 136 -> row 34.
  Write_Points({{1, kX, kY, 112.5F},
                {1, kX, kY, 110.4F},
                {1, kX, kY, 130},
                {1, kX + 19.9, kY - 19.9, 117.6F},
                {1, kX + 20, kY, 130},
                {1, kX, kY - 20, 130},
                {1, kX, kY, 50}});
  Plot_Lidar_Of_Site(w, kSiteRovik);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 3U);
    Expect_Point(k, 0, {kX, kY, 112.5}, 8, 2);
    Expect_Point(k, 1, {kX, kY, 130}, 63, 2);
    Expect_Point(k, 2, {kX + 19.9, kY - 19.9, double{117.6F}}, 34, 2);
  }
  EXPECT_EQ(w.LidarPlotScale, 0);
  EXPECT_FALSE(folder.Has("c/data/2004_lidar.txt"));
}

TEST_F(Als2004, RovikHeightsBeyondSixteenBitsAreAFailureAfterEarlierPoints) {
  Write_Points({{1, kX, kY, 130}, {1, kX, kY, 1e6F}, {1, kX, kY, 130}});
  Plot_Lidar_Of_Site(w, kSiteRovik);
  EXPECT_EQ(screen.messages, std::vector<std::string>{"An error has occurred!"});
  EXPECT_EQ(Marks(0).size(), 1U);
}

TEST_F(Als2004, ManyEchoesAreLeftWhenTheyAreCancelled) {
  Write_Records(std::vector<Test2004Record>(40000, Last(kX, kY, 100)));
  CancelAfter watcher(0);
  const WatchedWork watched(&watcher);
  EXPECT_THROW(plot_als_bin_file(w), Cancelled);
  EXPECT_LT(Marks(0).size(), 40000U);
}

TEST_F(Als2004, TheCommandIsThatOfLehtomaa) {
  Write_Points({{1, kX, kY, 130}});
  Write_Records({});
  plot_als_bin_file(w);
  EXPECT_TRUE(Marks(0).empty());
  EXPECT_EQ(w.LidarPlotScale, 40);
}

}  // namespace
}  // namespace sylvomex
