// SPDX-License-Identifier: MIT
#include "services/solution.h"

#include <gtest/gtest.h>

#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

std::string Label4_Texts(const Workspace& w) {
  return w.Form1.Label4(0).Caption + "|" + w.Form1.Label4(1).Caption + "|" +
         w.Form1.Label4(2).Caption;
}

TEST(ShownPoint, FillsTheThreeFieldsWithItsPattern) {
  SyntheticBlock b;
  const Point3D point{2515057.5, 0.1256, -0.25};
  Show_Point(b.w, point, kHundredths);
  EXPECT_EQ(Label4_Texts(b.w), "2515057.50|.13|-.25");
  Show_Point(b.w, point, kThousandths);
  EXPECT_EQ(Label4_Texts(b.w), "2515057.500|.126|-.250");
}

TEST(ShownPoint, FillsPlainNumbersWithoutAPattern) {
  SyntheticBlock b;
  Show_Point(b.w, {2515057.5, 0.125, -3}, kPlainNumbers);
  EXPECT_EQ(Label4_Texts(b.w), "2515057.5|0.125|-3");
}

TEST(ShownSolution, LeavesFlagAndRecordUnchanged) {
  SyntheticBlock b;
  b.w.Solution3D = {1, 2, 3};
  Show_Solution(b.w, kHundredths);
  EXPECT_EQ(Label4_Texts(b.w), "1.00|2.00|3.00");
  EXPECT_FALSE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Observation.X, 0);
}

TEST(RecordedSolution, TakesTheCurrentNumberAndLeavesTheTextsUnchanged) {
  SyntheticBlock b;
  b.w.NextMeasurementNumber = 7;
  b.w.Solution3D = {1.5, 2.5, 3.5};
  b.w.Form1.Label4(0).Caption = "before";
  Record_Solution(b.w);
  EXPECT_EQ(b.w.Observation.MeasurementNumber, 7);
  EXPECT_EQ(b.w.Observation.X, 1.5);
  EXPECT_EQ(b.w.Observation.Y, 2.5);
  EXPECT_EQ(b.w.Observation.Z, 3.5);
  EXPECT_EQ(b.w.Form1.Label4(0).Caption, "before");
  EXPECT_FALSE(b.w.SolutionValid);
}

TEST(AcceptedSolution, IsValidRecordedReportedAndShown) {
  SyntheticBlock b;
  b.w.Solution3D = {10, 20.25, 30};
  Accept_Solution(b.w);
  EXPECT_TRUE(b.w.SolutionValid);
  EXPECT_EQ(b.w.Observation.Y, 20.25);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "3D-value set succesfully");
  EXPECT_EQ(Label4_Texts(b.w), "10|20.25|30");
  EXPECT_EQ(b.screen.servicings, 0);
}

}  // namespace
}  // namespace sylvomex
