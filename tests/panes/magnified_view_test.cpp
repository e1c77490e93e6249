// SPDX-License-Identifier: MIT
// One pane over an image of 1000 x 1000 raw pixels whose red is the column mod 251 and green the
// row mod 241.
#include "panes/magnified_view.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "imageblock/bitmap_file.h"
#include "support/one_image_fixture.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

constexpr int kSide = 80;

class MagnifiedPane : public OneImage {
 protected:
  void View(int col, int row, double zoom) {
    w().PaneViews(0) = {
        static_cast<std::int16_t>(col), static_cast<std::int16_t>(row), 944, 944, zoom, zoom};
  }

  static std::pair<int, int> Colour_At(const MagnifiedView& view, int mx, int my) {
    const std::uint8_t* bgr = view.pixels.bgr.data() + 3 * (my * kSide + mx);
    return {bgr[2], bgr[1]};
  }
};

// At 2:1 pane 100, 60 is raw 20 + 50, 10 + 30. The square of 8x is 10 raw pixels wide: raw 65 to
// 74 and 35 to 44.
TEST_F(MagnifiedPane, ShowsTheRawPixelsAroundThePosition) {
  View(20, 10, 2);
  const auto view = Magnify(w(), 0, {100, 60}, 8, kSide);
  ASSERT_TRUE(view);
  EXPECT_EQ(view->pixels.width, kSide);
  EXPECT_EQ(Colour_At(*view, 0, 0), std::pair(65, 35));
  EXPECT_EQ(Colour_At(*view, 7, 7), std::pair(65, 35));
  EXPECT_EQ(Colour_At(*view, 8, 8), std::pair(66, 36));
  EXPECT_EQ(Colour_At(*view, 79, 79), std::pair(74, 44));
}

TEST_F(MagnifiedPane, PositionsAreThoseOfThePane) {
  View(20, 10, 2);
  const auto view = Magnify(w(), 0, {100, 60}, 8, kSide);
  ASSERT_TRUE(view);
  const PanePosition middle = view->To_Pane(40, 40);
  EXPECT_DOUBLE_EQ(middle.px, 100);
  EXPECT_DOUBLE_EQ(middle.py, 60);
  // One magnifier pixel is an eighth of a raw pixel, a quarter of a pane pixel.
  EXPECT_DOUBLE_EQ(view->To_Pane(41, 40).px, 100.25);
  EXPECT_DOUBLE_EQ(view->From_Pane({100.25, 59.5}).px, 41);
  EXPECT_DOUBLE_EQ(view->From_Pane({100.25, 59.5}).py, 38);
}

// Raw 20 + 10 / 1: with 8x a position a quarter of a raw pixel further is two magnifier pixels on.
TEST_F(MagnifiedPane, FollowsPositionsBetweenRawPixels) {
  View(20, 10, 1);
  const auto view = Magnify(w(), 0, {50.25, 60}, 8, kSide);
  ASSERT_TRUE(view);
  EXPECT_DOUBLE_EQ(view->To_Pane(40, 40).px, 50.25);
  EXPECT_EQ(Colour_At(*view, 5, 0).first, 65);  // the first raw pixel lost two of its eight
  EXPECT_EQ(Colour_At(*view, 6, 0).first, 66);
}

TEST_F(MagnifiedPane, StaysInsideTheRasterAtItsEdges) {
  View(0, 0, 1);
  const auto first = Magnify(w(), 0, {0, 1}, 8, kSide);
  ASSERT_TRUE(first);
  EXPECT_DOUBLE_EQ(first->corner.px, 0);
  EXPECT_DOUBLE_EQ(first->From_Pane({0, 1}).py, 8);
  View(56, 56, 1);
  const auto last = Magnify(w(), 0, {943, 943}, 8, kSide);
  ASSERT_TRUE(last);
  EXPECT_EQ(Colour_At(*last, 79, 79), std::pair(999 % 251, 999 % 241));
}

TEST_F(MagnifiedPane, ARasterSmallerThanTheSquareIsShownWhole) {
  w().ImageBlock(0).SubWidth = 5;
  View(0, 0, 1);
  const auto view = Magnify(w(), 0, {2, 60}, 8, kSide);
  ASSERT_TRUE(view);
  EXPECT_DOUBLE_EQ(view->corner.px, 0);
  EXPECT_EQ(Colour_At(*view, 40, 0), std::pair(0, 0));
}

TEST_F(MagnifiedPane, ACorrelationPaneShowsItsPatch) {
  PaneBitmap patch;
  patch.width = patch.height = 60;
  for (int at = 0; at < 3600; ++at) {
    patch.bgr.insert(patch.bgr.end(), 3, static_cast<std::uint8_t>(at % 60));
  }
  Write_Pane_Bitmap(w().Drives.Locate("c:\\data\\rkuva0.bmp"), patch);
  w().ImageKinds(0) = 2;
  w().CorrelationRecords(0) = w().ImageBlock(0);
  w().CorrelationRecords(0).SubWidth = w().CorrelationRecords(0).SubHeight = 60;
  w().CorrelationPaneViews(0) = {3, 0, 0, 0, 2.0, 2.0};
  const auto view = Magnify(w(), 0, {40, 40}, 8, kSide);  // about patch column 23
  ASSERT_TRUE(view);
  EXPECT_EQ(Colour_At(*view, 0, 0).first, 18);
}

TEST_F(MagnifiedPane, NothingIsMagnifiedWithoutAnImageOrItsFile) {
  EXPECT_FALSE(Magnify(w(), 3, {5, 5}, 8, kSide));
  std::filesystem::remove(w().Drives.Locate("c:\\data\\a.raw").native);
  EXPECT_FALSE(Magnify(w(), 0, {5, 5}, 8, kSide));
}

// Cameras 1000 m above Z = 0 at X 0 and 100: a ray from camera 0 to (10, 20, 0) is at (9.95, 19.9)
// for Z = 5 and at (10.05, 20.1) for Z = -5.
TEST(EpipolarEnds, AreTheRaysPointsBelowAndAboveTheSolution) {
  SyntheticBlock block;
  block.Add_Camera(0, 0, 1000);
  block.Add_Camera(100, 0, 1000);
  block.Observe(0, {10, 20, 0});
  block.w.Solution3D = {10, 20, 0};
  block.w.SolutionValid = true;
  block.w.CurrentImage = 0;
  const auto ends = Epipolar_Ends(block.w, 1);
  ASSERT_TRUE(ends);
  const PanePosition lower = block.Pane_Of(1, {10.05, 20.1, -5});
  EXPECT_NEAR(ends->lower.px, lower.px, 1e-6);
  EXPECT_NEAR(ends->lower.py, lower.py, 1e-6);
  const PanePosition upper = block.Pane_Of(1, {9.95, 19.9, 5});
  EXPECT_NEAR(ends->upper.px, upper.px, 1e-6);
  EXPECT_FALSE(Epipolar_Ends(block.w, 0));
  block.w.Form1.Text1(0).Text = "no number";
  EXPECT_FALSE(Epipolar_Ends(block.w, 1));
  block.w.SolutionValid = false;
  EXPECT_FALSE(Epipolar_Ends(block.w, 1));
}

}  // namespace
}  // namespace sylvomex
