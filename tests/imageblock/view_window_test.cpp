// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>

#include "expect_failure.h"
#include "imageblock/view_window.h"

namespace sylvomex {
namespace {

void Expect_Cols(const ViewWindow& window, int first, int last) {
  EXPECT_EQ(window.first_col, first);
  EXPECT_EQ(window.last_col, last);
}

void Expect_Rows(const ViewWindow& window, int first, int last) {
  EXPECT_EQ(window.first_row, first);
  EXPECT_EQ(window.last_row, last);
}

TEST(ViewWindow, EvenSizePutsTheCentreLeftOfTheMiddle) {
  const ViewWindow window = Compute_View_Window(1000, 800, 500, 400, 10, 20);
  EXPECT_TRUE(window.fits);
  Expect_Cols(window, 496, 505);
  Expect_Rows(window, 391, 410);
}

TEST(ViewWindow, OddSizePutsTheCentreInTheMiddle) {
  const ViewWindow window = Compute_View_Window(1000, 800, 500, 400, 11, 21);
  Expect_Cols(window, 495, 505);
  Expect_Rows(window, 390, 410);
}

TEST(ViewWindow, IsShiftedInsideFromTheLeftAndTop) {
  Expect_Cols(Compute_View_Window(1000, 800, 3, 2, 10, 20), 0, 9);
  Expect_Rows(Compute_View_Window(1000, 800, 3, 2, 10, 20), 0, 19);
  Expect_Cols(Compute_View_Window(1000, 800, -32000, 2, 11, 21), 0, 10);
  Expect_Rows(Compute_View_Window(1000, 800, 3, -32000, 11, 21), 0, 20);
}

TEST(ViewWindow, FirstColumnZeroIsNotShifted) {
  Expect_Cols(Compute_View_Window(1000, 800, 4, 400, 10, 20), 0, 9);
  Expect_Cols(Compute_View_Window(1000, 800, 5, 400, 11, 20), 0, 10);
}

TEST(ViewWindow, EvenSizeOverTheFarEdgeKeepsItsSize) {
  const ViewWindow window = Compute_View_Window(1000, 800, 998, 799, 10, 20);
  Expect_Cols(window, 990, 999);
  Expect_Rows(window, 780, 799);
}

TEST(ViewWindow, OddWidthOverTheRightEdgeIsOneColumnWider) {
  const ViewWindow window = Compute_View_Window(1000, 800, 998, 400, 11, 21);
  Expect_Cols(window, 988, 999);
}

TEST(ViewWindow, OddHeightOverTheBottomEdgeKeepsItsSize) {
  const ViewWindow window = Compute_View_Window(1000, 800, 500, 798, 11, 21);
  Expect_Rows(window, 779, 799);
}

TEST(ViewWindow, ThirtyTwoThousandShowsTheLastColumns) {
  Expect_Cols(Compute_View_Window(7500, 11500, 32000, 400, 600, 600), 6900, 7499);
}

TEST(ViewWindow, OddWidthOfTheWholeRawFileOverTheRightEdgeStartsBeforeIt) {
  Expect_Cols(Compute_View_Window(11, 40, 9, 20, 11, 21), -1, 10);
}

TEST(ViewWindow, LastColumnOnTheEdgeIsNotShifted) {
  Expect_Cols(Compute_View_Window(1000, 800, 994, 400, 11, 21), 989, 999);
}

TEST(ViewWindow, SizeOfTheWholeRawFileFits) {
  const ViewWindow window = Compute_View_Window(600, 600, 300, 300, 600, 600);
  EXPECT_TRUE(window.fits);
  Expect_Cols(window, 0, 599);
}

TEST(ViewWindow, LargerThanTheRawFileIsTheWholeFile) {
  for (const ViewWindow& window : {Compute_View_Window(500, 400, 250, 200, 501, 100),
                                   Compute_View_Window(500, 400, 250, 200, 100, 401)}) {
    EXPECT_FALSE(window.fits);
    Expect_Cols(window, 0, 499);
    Expect_Rows(window, 0, 399);
  }
}

TEST(ViewWindow, WholeFileOfFractionalSizeEndsAtTheRoundedSize) {
  const ViewWindow window = Compute_View_Window(500.5, 401.5, 250, 200, 600, 600);
  Expect_Cols(window, 0, 500);  // 499.5 and 400.5 go to the even neighbour
  Expect_Rows(window, 0, 400);
}

TEST(ViewWindow, FractionalWidthIsShiftedToTheRoundedEdge) {
  Expect_Cols(Compute_View_Window(1000.25, 800, 2000, 400, 10, 10), 990, 999);
}

TEST(ViewWindow, EmptyAndNegativeSizesDoNotThrow) {
  Expect_Cols(Compute_View_Window(1000, 800, 500, 400, 0, 0), 501, 500);
  Expect_Cols(Compute_View_Window(1000, 800, 500, 400, -3, -3), 502, 498);
}

TEST(ViewWindow, AbsurdRawSizesAreAnOverflowOrAWindow) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr int kMost = std::numeric_limits<int>::max();
  Expect_Failure(Failure::Overflow, [&] { Compute_View_Window(1e300, 5, 0, 0, 10, 10); });
  Expect_Failure(Failure::Overflow, [&] { Compute_View_Window(-kInfinity, 5, 0, 0, 10, 10); });
  Expect_Failure(Failure::Overflow, [&] { Compute_View_Window(1e300, 5, kMost, 0, 10, 3); });
  Expect_Cols(Compute_View_Window(1e9, 1e9, 999999999, 5, 10, 10), 999999990, 999999999);
  Expect_Cols(Compute_View_Window(kNan, kNan, 500, 400, 10, 10), 496, 505);
  Expect_Cols(Compute_View_Window(-5, -7, 0, 0, 10, 10), 0, -6);
}

}  // namespace
}  // namespace sylvomex
