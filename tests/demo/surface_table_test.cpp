// SPDX-License-Identifier: MIT
#include "demo/table/surface_table.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "tests/demo/small_scene.h"

namespace sylvomex::demo {
namespace {

TEST(SurfacePoints, AreFoundLessTrueByKindWithTheirScores) {
  const auto samples = Read_Surface_Points(
      "message \"x\" title=\"\" buttons=ok -> ok\n"
      "say pair, heath 150.250\nObservationRecord.Rmse = 0.9\nSolution3D = 1 2 150.5\n"
      "say triplet, heath 140\nObservationRecord.Rmse = 0.55\nSolution3D = 1 2 139.5\n"
      "say pair, heath 151\nObservationRecord.Rmse = -0.2\nSolution3D = 1 2 161\n"
      "Solution3D = 1 2 3\n");
  ASSERT_EQ(samples.size(), 2U);
  EXPECT_EQ(samples[0].name, "pair, heath");
  EXPECT_EQ(samples[0].limit, 0.35);
  ASSERT_EQ(samples[0].differences.size(), 2U);
  EXPECT_EQ(samples[0].differences[0].metres, 0.25);
  EXPECT_TRUE(samples[0].differences[0].accepted);
  EXPECT_EQ(samples[0].differences[1].metres, 10);
  EXPECT_FALSE(samples[0].differences[1].accepted);
  EXPECT_EQ(samples[1].limit, 0.15);
  EXPECT_EQ(samples[1].differences[0].metres, -0.5);
  EXPECT_FALSE(samples[1].differences[0].accepted);  // exactly the limit is not above it
}

TEST(SurfacePoints, APlaceWithoutASolutionCountsNowhere) {
  EXPECT_TRUE(Read_Surface_Points("say pair, heath 150\nerror X \"y\"\n").empty());
}

/// A crown of 2.5 m radius about (150, 150) on ground at 150 m.
const Scene& One_Tree() {
  static const Scene scene = Scene_Of({Tree_At(1, Species::Birch, 150, 150)});
  return scene;
}

TEST(SurfaceNodes, CountByGroundOrByCrownAndNotAtOutlines) {
  const TemporaryFolder folder;
  // Far from the tree, above its axis and 2.5 m from it.
  folder.Write("c/temp/maa.nod",
               "2515100,6860100,150.25\n2515150,6860150,168,150\n2515152.5,6860150,160\n");
  const auto samples = Read_Surface_Nodes(folder.Drives().Locate("c:\\temp\\maa.nod"), One_Tree(),
                                          "pair polygon", 0.35);
  ASSERT_EQ(samples.size(), 2U);
  EXPECT_EQ(samples[0].name, "pair polygon, ground");
  ASSERT_EQ(samples[0].differences.size(), 1U);
  EXPECT_EQ(samples[0].differences[0].metres, 0.25);
  EXPECT_EQ(samples[1].name, "pair polygon, crowns");
  ASSERT_EQ(samples[1].differences.size(), 1U);
  EXPECT_EQ(samples[1].differences[0].metres, -2);  // the top is at 170 m
}

TEST(SurfaceNodes, OfNoKindHaveNoSample) {
  const TemporaryFolder folder;
  folder.Write("c/temp/maa.nod", "2515100,6860100,150\n");
  const FilePath file = folder.Drives().Locate("c:\\temp\\maa.nod");
  EXPECT_EQ(Read_Surface_Nodes(file, One_Tree(), "x", 1).size(), 1U);
}

TEST(SurfaceResiduals, AreTheTriangulationLessTheTruth) {
  const TemporaryFolder folder;
  folder.Write("c/data/res.txt", "1.00 2.00 150.00 -99.00 150.50\n1.00 4.00 150.00 7.00 148.00\n");
  const SurfaceSample sample =
      Read_Surface_Residuals(folder.Drives().Locate("c:\\data\\res.txt"), "TIN", 0.2);
  ASSERT_EQ(sample.differences.size(), 2U);
  EXPECT_EQ(sample.differences[0].metres, 0.5);
  EXPECT_EQ(sample.differences[1].metres, -2);
}

TEST(SurfaceTable, TellsSharesOfAllAndOfAcceptedAndTheBlunders) {
  // Accepted: 0.1, -0.3, 2: mean 0.6, RMS sqrt(4.1 / 3) = 1.169; without 2: sqrt(0.05) = 0.224.
  const SurfaceSample sample{
      "pair, heath", {{0.1, true}, {-0.3, true}, {2, true}, {-8, false}}, 0.35};
  const std::string table = Table_Text({sample});
  EXPECT_EQ(
      table.substr(table.find('\n') + 1),
      "pair, heath                                 4     0.35   50.0 %        3   66.7 %    0.600"
      "    1.169        1    0.224\n");
}

}  // namespace
}  // namespace sylvomex::demo
