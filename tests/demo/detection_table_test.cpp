// SPDX-License-Identifier: MIT
#include "demo/table/detection_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

constexpr SearchedPlot kPlot{100, 200, 10};

TrueTree Tree_Of(double X, double Y, double height = 20, int photos = 6) {
  return {{X, Y, 50 + height}, height, photos};
}

FilePath Written(const std::string& name, const std::string& content) {
  const std::string path = testing::TempDir() + "sylvomex_" + name;
  std::ofstream(path) << content;
  return {path, path};
}

TEST(DetectionTable, CountsFoundMissedAndFalse) {
  const DetectionTable table = Compare_Clusters(
      {{101, 200, 71}, {96, 203.5, 70}, {100, 207, 60}, {120, 200, 70}},
      {Tree_Of(100, 200), Tree_Of(96, 203), Tree_Of(105, 200), Tree_Of(130, 200)}, kPlot);
  EXPECT_EQ(table.trees, 3U);
  EXPECT_EQ(table.visible, 3U);
  EXPECT_EQ(table.found, 2U);
  EXPECT_EQ(table.clusters, 3U);  // one lies outside
  EXPECT_EQ(table.wrong, 1U);
  EXPECT_DOUBLE_EQ(table.rmse_xy, std::sqrt((1 + 0.25) / 2));
  EXPECT_DOUBLE_EQ(table.rmse_z, std::sqrt((1.0 + 0) / 2));
}

TEST(DetectionTable, OnlyDominantTreesOnFourPhotographsCountAsVisible) {
  const DetectionTable table = Compare_Clusters({},
                                                {Tree_Of(100, 200, 16.9), Tree_Of(102, 200, 17),
                                                 Tree_Of(104, 200, 20, 3), Tree_Of(98, 200, 20, 4)},
                                                kPlot);
  EXPECT_EQ(table.trees, 4U);
  EXPECT_EQ(table.visible, 2U);
  EXPECT_EQ(table.found, 0U);
}

TEST(DetectionTable, AClusterOnALowTreeIsNotFalse) {
  const DetectionTable table = Compare_Clusters({{100, 200, 60}}, {Tree_Of(100, 201, 9)}, kPlot);
  EXPECT_EQ(table.clusters, 1U);
  EXPECT_EQ(table.wrong, 0U);
}

TEST(DetectionTable, PairsAreOneToOneNearestFirst) {
  // A cluster between two trees is matched to the nearer one; the second cluster of a tree is
  // false.
  const DetectionTable table =
      Compare_Clusters({{100.6, 200, 70}, {101.4, 200, 70}},
                       {Tree_Of(100, 200), Tree_Of(101.5, 200), Tree_Of(100, 201.4)}, kPlot);
  EXPECT_EQ(table.found, 2U);
  EXPECT_NEAR(table.rmse_xy, std::sqrt((0.36 + 0.01) / 2), 1e-12);
}

TEST(DetectionTable, BeyondAMetreAndAHalfThereIsNoPair) {
  EXPECT_EQ(Compare_Clusters({{101.51, 200, 70}}, {Tree_Of(100, 200)}, kPlot).found, 0U);
  EXPECT_EQ(Compare_Clusters({{101.49, 200, 70}}, {Tree_Of(100, 200)}, kPlot).found, 1U);
}

TEST(DetectionTable, TheTextShowsShares) {
  DetectionTable table;
  table.trees = 20;
  table.visible = 8;
  table.found = 6;
  table.clusters = 10;
  table.wrong = 1;
  table.rmse_xy = 0.314;
  const std::string text = Table_Text(table);
  EXPECT_NE(text.find("found                 6 (75 %)"), std::string::npos);
  EXPECT_NE(text.find("missed                2"), std::string::npos);
  EXPECT_NE(text.find("false                 1 (10 %)"), std::string::npos);
  EXPECT_NE(text.find("RMSE XY                 0.31 m"), std::string::npos);
}

TEST(SearchedPlotText, ComesFromTheTranscript) {
  const SearchedPlot plot =
      Read_Searched_Plot("say a\nPlotCenter = T1 0 2515000.5 6860000 150\nPlotRadius = 23\n");
  EXPECT_EQ(plot.X, 2515000.5);
  EXPECT_EQ(plot.Y, 6860000);
  EXPECT_EQ(plot.radius, 23);
  EXPECT_THROW(Read_Searched_Plot("say a\nPlotRadius = 23\n"), RunTimeError);
}

TEST(ClusterFile, IsNumberAndPositionPerLine) {
  const auto clusters = Read_Clusters(Written("a.nod", "1,5.25,4,10.75\n2,-1,6,10\n"));
  ASSERT_EQ(clusters.size(), 2U);
  EXPECT_EQ(clusters[1].X, -1);
  EXPECT_EQ(clusters[1].Z, 10);
}

TEST(TrueTrees, CountThePhotographsThatShowThem) {
  const auto trees = Read_True_Trees(Written("trees.csv",
                                             "id,X,Y,top_Z,height,col_1,visible_1,visible_2\n"
                                             "1,5,6,70,20,9.5,1,1\n2,7,8,60,10,9.5,0,1\n"));
  ASSERT_EQ(trees.size(), 2U);
  EXPECT_EQ(trees[0].photos, 2);
  EXPECT_EQ(trees[1].photos, 1);
  EXPECT_EQ(trees[1].height, 10);
  EXPECT_EQ(trees[1].top.Z, 60);
}

}  // namespace
}  // namespace sylvomex::demo
