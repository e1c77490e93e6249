// SPDX-License-Identifier: MIT
#include "overlays/measured_lines.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

const std::string kComment = "spruce, broken top            ";  // 30 characters with a comma
const std::string kLine = "   12,2515056.12,6860037.50,176.98,158.10,7.25,2,-3,2," + kComment +
                          ",1204,1205,12786.500,7580.250,12055.000,12455.125,";

TEST(MeasuredLines, HaveAllTheirFields) {
  const MeasuredLine line = Measured_Line_Of(kLine);
  ASSERT_TRUE(line.readable);
  EXPECT_EQ(line.number, 12);
  EXPECT_EQ(line.at.X, 2515056.12);
  EXPECT_EQ(line.at.Y, 6860037.50);
  EXPECT_EQ(line.at.Z, 176.98);
  EXPECT_EQ(line.dem_z, 158.10);
  EXPECT_EQ(line.rmse_um, 7.25);
  EXPECT_EQ(line.species, 2);
  EXPECT_EQ(line.free_integer, -3);
  EXPECT_EQ(line.comment, "spruce, broken top");
  ASSERT_EQ(line.rays.size(), 2U);
  EXPECT_EQ(line.rays[1].image_id, 1205);
  EXPECT_EQ(line.rays[1].col, 7580.25);
  EXPECT_EQ(line.rays[1].row, 12455.125);
  EXPECT_EQ(line.text, kLine);
}

TEST(MeasuredLines, NumbersMayBeginWithTheirPoint) {
  EXPECT_EQ(Measured_Line_Of("1,.50,-.25,3,.00,.00,0,0,0," + std::string(30, ' ') + ",").at.X, 0.5);
}

TEST(MeasuredLines, ALineThatIsNoObservationIsKeptAsUnreadable) {
  for (const std::string& line : std::vector<std::string>{
           "hello", "1,2,3", "1,2,3,4,5,6,7,8,10," + std::string(30, ' ') + ",",
           "1,2,3,4,5,6,7,8,-1," + std::string(30, ' ') + ",", "1,2,x,4,5,6,7,8,0," + kComment,
           kLine.substr(0, kLine.size() - 30)}) {
    EXPECT_FALSE(Measured_Line_Of(line).readable) << line;
    EXPECT_EQ(Measured_Line_Of(line).text, line);
  }
}

TEST(MeasuredLines, BlankLinesAreSkippedAndBothLineEndsRead) {
  const auto lines = Measured_Lines_Of(kLine + "\r\n\n  \nbad\n" + kLine);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_TRUE(lines[0].readable);
  EXPECT_FALSE(lines[1].readable);
  EXPECT_TRUE(lines[2].readable);
  EXPECT_TRUE(Measured_Lines_Of("").empty());
}

}  // namespace
}  // namespace sylvomex
