// SPDX-License-Identifier: MIT
// A pane of 100 x 80 pixels over a raw file of 400 x 300.
#include "imageblock/view_moves.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

constexpr ViewFrame kFrame{400, 300, 100, 80};

PaneView View(int col, int row, double zoom) {
  return {static_cast<std::int16_t>(col), static_cast<std::int16_t>(row), 100, 80, zoom, zoom};
}

TEST(SteppedZoom, GoesThroughTheWholeFactors) {
  EXPECT_EQ(Stepped_Zoom(1, 1, kFrame), 2);
  EXPECT_EQ(Stepped_Zoom(1, 3, kFrame), 4);
  EXPECT_EQ(Stepped_Zoom(3, -2, kFrame), 1);
  EXPECT_EQ(Stepped_Zoom(1, -1, kFrame), 1.0 / 2);
  EXPECT_EQ(Stepped_Zoom(1.0 / 3, 1, kFrame), 1.0 / 2);
  EXPECT_EQ(Stepped_Zoom(1.0 / 3, 2, kFrame), 1);
}

TEST(SteppedZoom, EndsAtSixteen) {
  EXPECT_EQ(Stepped_Zoom(15, 5, kFrame), 16);
  EXPECT_EQ(Stepped_Zoom(16, 1, kFrame), 16);
}

// 80 / (1/4) = 320 rows do not fit into 300.
TEST(SteppedZoom, EndsBeforeTheViewLeavesTheRawFile) {
  EXPECT_EQ(Stepped_Zoom(1, -9, kFrame), 1.0 / 3);
  EXPECT_EQ(Stepped_Zoom(1.0 / 3, -1, kFrame), 1.0 / 3);
}

TEST(SteppedZoom, APaneLargerThanItsRawFileOnlyZoomsIn) {
  const ViewFrame small{90, 300, 100, 80};
  EXPECT_EQ(Stepped_Zoom(1, -1, small), 1);
  EXPECT_EQ(Stepped_Zoom(1, 1, small), 2);
}

TEST(SteppedZoom, AZoomBetweenTwoFactorsStartsFromTheNearerOne) {
  EXPECT_EQ(Stepped_Zoom(2.2, 1, kFrame), 3);
  EXPECT_EQ(Stepped_Zoom(0.34, 1, kFrame), 0.5);
}

TEST(SteppedZoom, APaneWithoutAnImageStaysWithout) { EXPECT_EQ(Stepped_Zoom(0, 1, kFrame), 0); }

TEST(SteppedZoom, NoStepIsNoChange) { EXPECT_EQ(Stepped_Zoom(2.2, 0, kFrame), 2.2); }

TEST(DraggedView, FollowsTheHandAtEveryZoom) {
  const PaneView one = Dragged_View(View(50, 60, 1), kFrame, 12, -7);
  EXPECT_EQ(one.ViewCol, 38);
  EXPECT_EQ(one.ViewRow, 67);
  const PaneView four = Dragged_View(View(50, 60, 4), kFrame, 12, -8);
  EXPECT_EQ(four.ViewCol, 47);
  EXPECT_EQ(four.ViewRow, 62);
  const PaneView half = Dragged_View(View(50, 60, 0.5), kFrame, 12, -7);
  EXPECT_EQ(half.ViewCol, 26);
  EXPECT_EQ(half.ViewRow, 74);
  EXPECT_EQ(half.ZoomX, 0.5);
}

TEST(DraggedView, TiesGoToTheEvenPixel) {
  EXPECT_EQ(Dragged_View(View(50, 60, 2), kFrame, 1, 0).ViewCol, 50);  // 49.5
  EXPECT_EQ(Dragged_View(View(51, 60, 2), kFrame, 1, 0).ViewCol, 50);  // 50.5
}

TEST(DraggedView, StaysInsideTheRawFile) {
  const PaneView upper = Dragged_View(View(50, 60, 1), kFrame, 1000, 1000);
  EXPECT_EQ(upper.ViewCol, 0);
  EXPECT_EQ(upper.ViewRow, 0);
  const PaneView lower = Dragged_View(View(50, 60, 1), kFrame, -1000, -1e300);
  EXPECT_EQ(lower.ViewCol, 300);  // 400 - 100
  EXPECT_EQ(lower.ViewRow, 220);  // 300 - 80
}

TEST(DraggedView, AnAxisWithoutRoomStartsAtTheFirstPixel) {
  const ViewFrame narrow{90, 300, 100, 80};
  const PaneView moved = Dragged_View(View(20, 60, 1), narrow, -5, -5);
  EXPECT_EQ(moved.ViewCol, 0);
  EXPECT_EQ(moved.ViewRow, 65);
}

TEST(DraggedView, StartsWithinSixteenBits) {
  const ViewFrame wide{100000, 300, 100, 80};
  EXPECT_EQ(Dragged_View(View(50, 60, 1), wide, -1e6, 0).ViewCol, 32767);
}

TEST(ZoomedView, KeepsThePositionUnderThePointer) {
  // Raw 50 + 40 = 90, 60 + 20 = 80 stay under 40, 20: 90 - 40 / 2 and 80 - 20 / 2.
  const PaneView in = Zoomed_View(View(50, 60, 1), kFrame, 2, 40, 20);
  EXPECT_EQ(in.ViewCol, 70);
  EXPECT_EQ(in.ViewRow, 70);
  EXPECT_EQ(in.ZoomX, 2);
  EXPECT_EQ(in.ZoomY, 2);
  const PaneView out = Zoomed_View(in, kFrame, 1, 40, 20);
  EXPECT_EQ(out.ViewCol, 50);
  EXPECT_EQ(out.ViewRow, 60);
}

TEST(ZoomedView, TakesThePaneSizeAsTheViewSize) {
  PaneView view = View(50, 60, 1);
  view.ViewWidth = 7;
  EXPECT_EQ(Zoomed_View(view, kFrame, 2, 0, 0).ViewWidth, 100);
  EXPECT_EQ(Zoomed_View(view, kFrame, 2, 0, 0).ViewHeight, 80);
}

TEST(WindowOfView, HoldsTheRawPixelsOfThePane) {
  const ViewWindow at_two = Window_Of_View(View(70, 65, 2), kFrame);
  EXPECT_EQ(at_two.first_col, 70);
  EXPECT_EQ(at_two.last_col, 119);
  EXPECT_EQ(at_two.first_row, 65);
  EXPECT_EQ(at_two.last_row, 104);
  EXPECT_TRUE(at_two.fits);
  EXPECT_EQ(Window_Of_View(View(0, 0, 0.5), kFrame).last_col, 199);
}

TEST(WindowOfView, EndsWithTheRawFile) {
  const ViewFrame narrow{90, 300, 100, 80};
  const ViewWindow window = Window_Of_View(View(0, 65, 1), narrow);
  EXPECT_EQ(window.last_col, 89);
  EXPECT_EQ(window.last_row, 144);
  EXPECT_FALSE(window.fits);
}

}  // namespace
}  // namespace sylvomex
