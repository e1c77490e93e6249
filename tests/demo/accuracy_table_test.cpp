// SPDX-License-Identifier: MIT
#include "demo/table/accuracy_table.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/run_time_error.h"

namespace sylvomex::demo {
namespace {

constexpr const char* kTranscript =
    "say tree 7\n"
    "beep 1000 200\n"
    "Solution3D = 101 202 33\n"
    "Label10 = RMSE: 3.5 um STDs: .03 m, .03 m, .08 m\n"
    "say \"tree 9\"\n"
    "message \"At least two images are needed for stereo restitution!\" title=\"\" buttons=ok -> "
    "ok\n"
    "say tree 12\n"
    "Solution3D = 9 20 31\n"
    "Label10 = RMSE: 4.5 um STDs: .03 m, .03 m, .08 m\n";

FilePath Truth_File(const std::string& content) {
  const std::string path = testing::TempDir() + "sylvomex_truth.csv";
  std::ofstream(path) << content;
  return {path, path};
}

TEST(MeasuredTops, AreReadFromATranscript) {
  const auto tops = Read_Measured_Tops(kTranscript);
  ASSERT_EQ(tops.size(), 2U) << "tree 9 has no solution";
  EXPECT_EQ(tops[0].tree, 7);
  EXPECT_DOUBLE_EQ(tops[0].point.Y, 202);
  EXPECT_DOUBLE_EQ(tops[0].rmse_um, 3.5);
  EXPECT_EQ(tops[1].tree, 12);
}

TEST(MeasuredTops, ASolutionBeforeTheFirstTreeDoesNotCount) {
  EXPECT_TRUE(Read_Measured_Tops("Solution3D = 1 2 3\nLabel10 = RMSE: 1.0 um\n").empty());
}

TEST(TrueTops, ComeFromTheNamedColumns) {
  const auto tops = Read_True_Tops(Truth_File("id,species,X,Y,top_Z\n3,pine,1.5,2.5,20\n"));
  ASSERT_EQ(tops.size(), 1U);
  EXPECT_DOUBLE_EQ(tops.at(3).X, 1.5);
  EXPECT_DOUBLE_EQ(tops.at(3).Z, 20);
}

TEST(TrueTops, AMissingColumnAndAShortLineAreNamed) {
  try {
    Read_True_Tops(Truth_File("id,X,Y\n"));
    FAIL() << "accepted";
  } catch (const RunTimeError& error) {
    EXPECT_NE(std::string(error.what()).find("no column top_Z"), std::string::npos);
  }
  try {
    Read_True_Tops(Truth_File("id,X,Y,top_Z\n1,2,3,4\n1,2\n"));
    FAIL() << "accepted";
  } catch (const RunTimeError& error) {
    EXPECT_NE(std::string(error.what()).find("line 3"), std::string::npos) << error.what();
  }
}

TEST(AccuracyTable, MeansRmsAndMedianByHand) {
  // Errors: dX +1, -1; dY +2, 0; dZ +3, +1.
  const std::map<int, Point3D> truth = {{7, {100, 200, 30}}, {12, {10, 20, 30}}};
  const auto table = Compare_With_Truth(Read_Measured_Tops(kTranscript), truth).value();
  EXPECT_EQ(table.n, 2U);
  EXPECT_DOUBLE_EQ(table.x.mean, 0);
  EXPECT_DOUBLE_EQ(table.x.rms, 1);
  EXPECT_DOUBLE_EQ(table.y.mean, 1);
  EXPECT_DOUBLE_EQ(table.y.rms, 1.4142135623730951);
  EXPECT_DOUBLE_EQ(table.z.mean, 2);
  EXPECT_DOUBLE_EQ(table.z.rms, 2.23606797749979);
  EXPECT_DOUBLE_EQ(table.median_rmse_um, 4);
  EXPECT_EQ(Table_Text(table, 12.34),
            "trees  2\n"
            "dX  mean 0.000 m   RMS 1.000 m\n"
            "dY  mean 1.000 m   RMS 1.414 m\n"
            "dZ  mean 2.000 m   RMS 2.236 m\n"
            "median RMSE 4.0 um\n"
            "seconds 12.3\n");
}

TEST(AccuracyTable, IsEmptyWhenNoTreeIsKnown) {
  EXPECT_FALSE(Compare_With_Truth(Read_Measured_Tops(kTranscript), {}).has_value());
}

}  // namespace
}  // namespace sylvomex::demo
