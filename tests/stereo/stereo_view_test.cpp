// SPDX-License-Identifier: MIT
#include "stereo/stereo_view.h"

#include <gtest/gtest.h>

#include "imageblock/expect_failure.h"
#include "level_pair.h"

namespace sylvomex {
namespace {

/// The level pair in a picture of 100 x 80 pixels, its mark on left column 250, right column 150,
/// row 150.
StereoState Level_State() {
  StereoState state;
  state.Pair = Level_Pair();
  state.PairOpen = true;
  state.StereoSolution = state.Pair.start;
  state.StereoWidth = 100;
  state.StereoHeight = 80;
  Center_On_Mark(state);
  return state;
}

void Expect_Window(const StereoWindow& window, int first_row, int first_col, int last_row,
                   int last_col) {
  EXPECT_EQ(window.first_row, first_row);
  EXPECT_EQ(window.first_col, first_col);
  EXPECT_EQ(window.last_row, last_row);
  EXPECT_EQ(window.last_col, last_col);
}

TEST(PictureSize, IsFiftyPixelsNarrowerInStepsOfFour) {
  StereoState state;
  for (const auto& [client, width] : {std::pair{150, 100}, {153, 100}, {154, 104}, {1050, 1000}}) {
    Set_Picture_Size(state, client, 400);
    EXPECT_EQ(state.StereoWidth, width) << client;
  }
}

TEST(PictureSize, LeavesRoomForTheMarksLineAndIsEven) {
  StereoState state;
  Set_Picture_Size(state, 150, 430);
  EXPECT_EQ(state.StereoHeight, 400);
  Set_Picture_Size(state, 150, 431);
  EXPECT_EQ(state.StereoHeight, 400);
}

TEST(PictureSize, HasAtLeastOneStep) {
  StereoState state;
  Set_Picture_Size(state, 20, 0);
  EXPECT_EQ(state.StereoWidth, 4);
  EXPECT_EQ(state.StereoHeight, 2);
}

TEST(PictureSize, BeyondSixteenBitsIsAnOverflowThatChangesNothing) {
  StereoState state;
  Set_Picture_Size(state, 150, 130);
  Expect_Failure(Failure::Overflow, [&] { Set_Picture_Size(state, 40000, 130); });
  Expect_Failure(Failure::Overflow, [&] { Set_Picture_Size(state, 250, 40000); });
  EXPECT_EQ(state.StereoWidth, 100);
  EXPECT_EQ(state.StereoHeight, 100);
}

TEST(Recentring, BringsTheMarkToTheMiddleOfBothWindows) {
  const StereoState state = Level_State();
  EXPECT_EQ(state.LeftRow, 150);
  EXPECT_EQ(state.LeftCol, 250);
  EXPECT_EQ(state.RightRow, 150);
  EXPECT_EQ(state.RightCol, 150);
  Expect_Window(state.WindowLeft, 110, 200, 190, 300);
  Expect_Window(state.WindowRight, 110, 100, 190, 200);
  EXPECT_EQ(state.Parallax(0), 40);
  EXPECT_EQ(state.Parallax(1), 50);
  EXPECT_EQ(state.Parallax(2), 40);
  EXPECT_EQ(state.Parallax(3), 50);
}

TEST(Recentring, PutsTheOriginsAtTheUpperLeftCorners) {
  const StereoState state = Level_State();
  // Left xn = 0.0005, 50 pixels to the left; yn = 0, 40 pixels up.
  EXPECT_NEAR(state.OriginLeftX, 0.0, 1e-15);
  EXPECT_NEAR(state.OriginLeftY, 0.0004, 1e-15);
  EXPECT_NEAR(state.OriginRightX, -0.001, 1e-15);
  EXPECT_NEAR(state.OriginRightY, 0.0004, 1e-15);
}

TEST(Recentring, MakesTheMarkTheAnchor) {
  StereoState state = Level_State();
  Move_Mark(state, {1006, 2001, 0});
  EXPECT_EQ(state.Anchor.X, 1005);
  Center_On_Mark(state);
  EXPECT_EQ(state.Anchor.X, 1006);
  EXPECT_EQ(state.Anchor.Y, 2001);
}

TEST(Recentring, RowsAndColumnsRoundHalfToEven) {
  StereoState state = Level_State();
  // Left column 250.5, right 150.5.
  state.StereoSolution.X = 1005.05;
  state.Pair.Xmin = -0.002;
  Center_On_Mark(state);
  EXPECT_EQ(state.LeftCol, 250);
  EXPECT_EQ(state.RightCol, 150);
}

TEST(Recentring, AMarkWhoseColumnLeavesSixteenBitsIsAnOverflow) {
  StereoState state = Level_State();
  state.StereoSolution.X = 9000;
  Expect_Failure(Failure::Overflow, [&] { Center_On_Mark(state); });
}

TEST(Recentring, AMarkAtTheCentresHeightIsADivisionByZero) {
  StereoState state = Level_State();
  state.StereoSolution.Z = 1000;
  Expect_Failure(Failure::DivisionByZero, [&] { Center_On_Mark(state); });
}

TEST(MovedMark, LeavesTheWindowsAndTellsItsOffsets) {
  StereoState state = Level_State();
  Move_Mark(state, {1006, 1999, 0});
  Expect_Window(state.WindowLeft, 110, 200, 190, 300);
  EXPECT_EQ(state.LeftCol, 260);
  EXPECT_EQ(state.RightCol, 160);
  EXPECT_EQ(state.LeftRow, 160);
  EXPECT_EQ(state.Parallax(0), 50);
  EXPECT_EQ(state.Parallax(1), 60);
  EXPECT_EQ(state.Parallax(3), 60);
}

TEST(StereoPosition, IsTheSameInBothWindowsAtTheAnchorsHeight) {
  const StereoPosition at = Object_To_Picture(Level_State(), {1007, 2003, 0});
  EXPECT_NEAR(at.left.px, 70, 1e-9);
  EXPECT_NEAR(at.right.px, 70, 1e-9);
  EXPECT_NEAR(at.left.py, 10, 1e-9);
  EXPECT_NEAR(at.right.py, 10, 1e-9);
}

TEST(StereoPosition, OfAHigherPointHasAParallaxByTheDistance) {
  // 200 m up, a pixel is 0.08 m: left column 200 + 5 / 0.08, right column 200 - 5 / 0.08.
  const StereoPosition at = Object_To_Picture(Level_State(), {1005, 2000, 200});
  EXPECT_NEAR(at.left.px, 62.5, 1e-9);
  EXPECT_NEAR(at.right.px, 37.5, 1e-9);
  EXPECT_NEAR(at.left.py, 40, 1e-9);
}

TEST(PointUnderPointer, LiesOnTheLeftRayAtTheMarksHeight) {
  StereoState state = Level_State();
  const auto ground = Point_Under_Pointer(state, 70, 10);
  ASSERT_TRUE(ground.has_value());
  EXPECT_NEAR(ground->X, 1007, 1e-9);
  EXPECT_NEAR(ground->Y, 2003, 1e-9);
  state.StereoSolution.Z = 200;
  const auto high = Point_Under_Pointer(state, 70, 10);
  ASSERT_TRUE(high.has_value());
  EXPECT_NEAR(high->X, 1005.6, 1e-9);
  EXPECT_NEAR(high->Y, 2002.4, 1e-9);
  EXPECT_EQ(high->Z, 200);
}

TEST(PointUnderPointer, IsNoneForAHorizontalRay) {
  StereoState state = Level_State();
  // The camera looks along X, so its principal ray is level.
  state.Pair.left.rotation = {0, 1, 0, 0, 0, 1, -1, 0, 0};
  state.OriginLeftX = state.OriginLeftY = 0;
  EXPECT_FALSE(Point_Under_Pointer(state, 0, 0).has_value());
}

}  // namespace
}  // namespace sylvomex
