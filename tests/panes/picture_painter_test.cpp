// SPDX-License-Identifier: MIT
#include "panes/picture_painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

namespace sylvomex {
namespace {

constexpr std::uint32_t kPaper = 0xfff0f0f0;  // an empty pane
constexpr std::uint32_t kInk = 0xffff0000;
constexpr Colour kInkColour{255, 0, 0};

class PicturePainter : public testing::Test {
 protected:
  static constexpr int kWidth = 40, kHeight = 30, kStride = 48;

  PixelView View() { return {pixels_.data(), kWidth, kHeight, kStride}; }

  PixelRect Paint(std::size_t first = 0) {
    Paint_Bitmap(View(), picture_.bitmap.get());
    return Paint_Marks(View(), picture_, first);
  }

  std::uint32_t At(int x, int y) { return View().Row(y)[x]; }

  int Inked() {
    int count = 0;
    for (int y = 0; y < kHeight; ++y) {
      count += static_cast<int>(
          std::count_if(View().Row(y), View().Row(y) + kWidth, [](auto p) { return p != kPaper; }));
    }
    return count;
  }

  void Print(const char* text, double px, double py) {
    picture_.ForeColor = kInkColour;
    picture_.CurrentX = px;
    picture_.CurrentY = py;
    Print_Text(picture_, text);
  }

  Picture picture_;
  std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(kStride * kHeight, 0x12345678);
};

TEST_F(PicturePainter, PointOfWidthOneIsOnePixelAtTheNearestPosition) {
  Plot_Point(picture_, 10.4, 20.6, kInkColour);
  Paint();
  EXPECT_EQ(Inked(), 1);
  EXPECT_EQ(At(10, 21), kInk);
}

TEST_F(PicturePainter, HalfPixelsGoToTheEvenOneForPointsAndLines) {
  Plot_Point(picture_, 10.5, 3.5, kInkColour);
  Draw_Line(picture_, 20.5, 7.5, 25.5, 7.5, kInkColour);
  Paint();
  EXPECT_EQ(At(10, 4), kInk);
  EXPECT_EQ(At(20, 8), kInk);
  EXPECT_EQ(At(26, 8), kInk);
  EXPECT_EQ(Inked(), 1 + 7);
}

TEST_F(PicturePainter, PointOfWidthThreeIsASquareAroundItsPosition) {
  picture_.DrawWidth = 3;
  Plot_Point(picture_, 10, 20, kInkColour);
  Paint();
  EXPECT_EQ(Inked(), 9);
  EXPECT_EQ(At(9, 19), kInk);
  EXPECT_EQ(At(11, 21), kInk);
}

TEST_F(PicturePainter, PointAtTheEdgeIsCut) {
  picture_.DrawWidth = 3;
  Plot_Point(picture_, 0, 0, kInkColour);
  Plot_Point(picture_, kWidth - 1, kHeight - 1, kInkColour);
  Paint();
  EXPECT_EQ(Inked(), 8);
}

TEST_F(PicturePainter, PixelsBesideARowStayUnchanged) {
  picture_.DrawWidth = 9;
  Plot_Point(picture_, kWidth - 1, 5, kInkColour);
  Draw_Line(picture_, 0, 12, 100, 12, kInkColour);
  Print("a text that is longer than the pane", 2, 15);
  Paint();
  for (int y = 0; y < kHeight; ++y) {
    for (int x = kWidth; x < kStride; ++x) EXPECT_EQ(At(x, y), 0x12345678U) << x << ' ' << y;
  }
}

TEST_F(PicturePainter, PositionsFarOutsideAndNaNPaintNothing) {
  const double not_a_number = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  for (const int width : {1, 4}) {
    picture_.DrawWidth = width;
    Plot_Point(picture_, 1e300, 5, kInkColour);
    Plot_Point(picture_, not_a_number, 5, kInkColour);
    Draw_Line(picture_, not_a_number, 0, 10, 10, kInkColour);
    Draw_Line(picture_, 5, 5, infinite, 10, kInkColour);
  }
  Print("far", -1e12, 0);
  Print("nowhere", not_a_number, 0);
  EXPECT_TRUE(Paint().Is_Empty());
  EXPECT_EQ(Inked(), 0);
}

TEST_F(PicturePainter, HorizontalLineCoversBothEnds) {
  Draw_Line(picture_, 5, 10, 14, 10, kInkColour);
  Paint();
  EXPECT_EQ(Inked(), 10);
  EXPECT_EQ(At(5, 10), kInk);
  EXPECT_EQ(At(14, 10), kInk);
}

TEST_F(PicturePainter, LineToItsOwnStartIsOnePixel) {
  Draw_Line(picture_, 5, 10, 5, 10, kInkColour);
  Paint();
  EXPECT_EQ(Inked(), 1);
  EXPECT_EQ(At(5, 10), kInk);
}

// One pixel per column: y = 2 + (x - 3) / 3 rounded to the nearest integer.
TEST_F(PicturePainter, FlatLineHasOnePixelInEachColumn) {
  Draw_Line(picture_, 3, 2, 12, 5, kInkColour);
  Paint();
  const int rows[] = {2, 2, 3, 3, 3, 4, 4, 4, 5, 5};
  for (int k = 0; k < 10; ++k) EXPECT_EQ(At(3 + k, rows[k]), kInk) << k;
  EXPECT_EQ(Inked(), 10);
}

TEST_F(PicturePainter, LineOfWidthThreeLiesAroundItsPixels) {
  picture_.DrawWidth = 3;
  Draw_Line(picture_, 10, 10, 20, 10, kInkColour);
  Paint();
  for (int x = 10; x <= 20; ++x) {
    for (int y = 9; y <= 11; ++y) EXPECT_EQ(At(x, y), kInk) << x << ' ' << y;
    EXPECT_EQ(At(x, 8), kPaper);
    EXPECT_EQ(At(x, 12), kPaper);
  }
}

TEST_F(PicturePainter, LineWhoseEndsLieFarOutsideStillCrossesThePane) {
  Draw_Line(picture_, -1e9, 15, 1e9, 15, kInkColour);
  Paint();
  EXPECT_EQ(Inked(), kWidth);
}

TEST_F(PicturePainter, ThickLineWhoseEndsLieFarOutsideStillCrossesThePane) {
  picture_.DrawWidth = 3;
  Draw_Line(picture_, -1e9, 15, 1e9, 15, kInkColour);
  Paint();
  EXPECT_EQ(Inked(), 3 * kWidth);
}

TEST_F(PicturePainter, TextHangsBelowItsPosition) {
  Print("H", 4, 8);
  const PixelRect touched = Paint();
  EXPECT_GT(Inked(), 5);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const bool may_be_inked = y >= 8 && x >= touched.left && x < touched.right &&
                                y >= touched.top && y < touched.bottom;
      if (!may_be_inked) {
        EXPECT_EQ(At(x, y), kPaper) << x << ' ' << y;
      }
    }
  }
}

// A capital letter is about seven tenths of the font size high: 20 points are 26.67 pixels.
TEST_F(PicturePainter, FontSizeIsInPointsOf96PixelsAnInch) {
  picture_.font = {"Arial", 20, true};
  Print("H", 4, 0);
  Paint();
  int rows = 0;
  for (int y = 0; y < kHeight; ++y) rows += At(8, y) != kPaper ? 1 : 0;
  EXPECT_NEAR(rows, 0.72 * 26.67, 2);
}

TEST_F(PicturePainter, TextOfAnOldFileIsReadAsLatin1) {
  Print("\xC4", 4, 8);
  Paint();
  const std::vector<std::uint32_t> latin1 = pixels_;
  Erase_Marks(picture_);
  Print("\xC3\x84", 4, 8);
  Paint();
  EXPECT_EQ(pixels_, latin1);
  EXPECT_GT(Inked(), 5);
}

TEST_F(PicturePainter, LaterMarksLieOverEarlierOnes) {
  picture_.DrawWidth = 3;
  Draw_Line(picture_, 0, 10, 39, 10, {0, 0, 255});
  Plot_Point(picture_, 20, 10, kInkColour);
  Draw_Line(picture_, 30, 0, 30, 20, {0, 255, 0});
  Paint();
  EXPECT_EQ(At(20, 10), kInk);
  EXPECT_EQ(At(30, 10), 0xff00ff00U);
}

TEST_F(PicturePainter, ReturnsThePixelsThatItChanged) {
  picture_.DrawWidth = 3;
  Plot_Point(picture_, 10, 20, kInkColour);
  Plot_Point(picture_, 15, 22, kInkColour);
  EXPECT_EQ(Paint(), (PixelRect{9, 19, 17, 24}));
  EXPECT_EQ(Paint(1), (PixelRect{14, 21, 17, 24}));
}

TEST_F(PicturePainter, MarksPaintedOneByOneLookLikeMarksPaintedAtOnce) {
  picture_.DrawWidth = 4;
  Draw_Line(picture_, 2, 3, 35, 20, {0, 90, 255});
  Plot_Point(picture_, 20, 12, kInkColour);
  Print("a", 20, 10);
  picture_.DrawWidth = 1;
  Draw_Line(picture_, 0, 29, 39, 0, {0, 0, 0});
  Paint();
  const std::vector<std::uint32_t> at_once = pixels_;
  Picture grown;
  Paint_Bitmap(View(), nullptr);
  grown.texts = picture_.texts;
  for (std::size_t k = 0; k < picture_.marks.size(); ++k) {
    grown.marks.push_back(picture_.marks[k]);
    Paint_Marks(View(), grown, k);
  }
  EXPECT_EQ(pixels_, at_once);
}

TEST_F(PicturePainter, BitmapKeepsItsPixelsAndTheRestIsEmpty) {
  auto bitmap = std::make_shared<PaneBitmap>();
  bitmap->width = 2;
  bitmap->height = 1;
  bitmap->bgr = {1, 2, 3, 4, 5, 6};
  Load_Picture(picture_, bitmap);
  Paint();
  EXPECT_EQ(At(0, 0), 0xff030201U);
  EXPECT_EQ(At(1, 0), 0xff060504U);
  EXPECT_EQ(At(2, 0), kPaper);
  EXPECT_EQ(At(0, 1), kPaper);
}

TEST_F(PicturePainter, BitmapLargerThanThePaneIsCut) {
  auto bitmap = std::make_shared<PaneBitmap>();
  bitmap->width = kWidth + 3;
  bitmap->height = kHeight + 2;
  bitmap->bgr.assign(static_cast<std::size_t>(3 * bitmap->width * bitmap->height), 7);
  bitmap->bgr[static_cast<std::size_t>(3 * bitmap->width)] = 200;  // blue of the second row
  Load_Picture(picture_, bitmap);
  Paint();
  EXPECT_EQ(At(0, 1), 0xff0707c8U);
  EXPECT_EQ(At(kWidth - 1, kHeight - 1), 0xff070707U);
  EXPECT_EQ(At(kWidth, 0), 0x12345678U);
}

class PenModes : public PicturePainter {
 protected:
  static constexpr std::uint32_t kGround = 0xff5a0f81;

  PenModes() {
    auto bitmap = std::make_shared<PaneBitmap>();
    bitmap->width = kWidth;
    bitmap->height = kHeight;
    for (int k = 0; k < kWidth * kHeight; ++k)
      bitmap->bgr.insert(bitmap->bgr.end(), {0x81, 0x0f, 0x5a});
    picture_.bitmap = bitmap;
  }

  void Draw(PenMode mode, Colour colour, int width) {
    Draw_Line(picture_, 5, 10, 14, 10, colour);
    picture_.marks.back().mode = mode;
    picture_.marks.back().width = static_cast<std::int16_t>(width);
  }

  int Changed() {
    int count = 0;
    for (int y = 0; y < kHeight; ++y) {
      count += static_cast<int>(std::count_if(View().Row(y), View().Row(y) + kWidth,
                                              [](auto p) { return p != kGround; }));
    }
    return count;
  }
};

TEST_F(PenModes, NotMaskPenLeavesTheInverseOfTheCommonBits) {
  for (const int width : {1, 2}) {
    picture_.marks.clear();
    Draw(PenMode::NotMaskPen, {255, 0, 0}, width);
    Paint();
    EXPECT_EQ(At(9, 10), 0xffa5ffffU) << width;  // not (ff0000 and 5a0f81)
  }
}

TEST_F(PenModes, MaskPenLeavesTheCommonBits) {
  for (const int width : {1, 2}) {
    picture_.marks.clear();
    Draw(PenMode::MaskPen, {0, 255, 255}, width);
    Paint();
    EXPECT_EQ(At(9, 10), 0xff000f81U) << width;
  }
}

TEST_F(PenModes, TwoPensOverEachOtherAreJoinedInTheirOrder) {
  Draw(PenMode::NotMaskPen, {255, 0, 0}, 2);
  Draw(PenMode::NotMaskPen, {0, 255, 255}, 2);
  Paint();
  EXPECT_EQ(At(9, 10), 0xffff0000U);  // not (00ffff and a5ffff)
}

TEST_F(PenModes, ALineCoversThePixelsThatACopiedOneCovers) {
  Draw(PenMode::CopyPen, {1, 2, 3}, 2);
  const PixelRect copied = Paint();
  const int covered = Changed();
  picture_.marks.clear();
  Draw(PenMode::NotMaskPen, {255, 0, 0}, 2);
  EXPECT_EQ(Paint(), copied);
  EXPECT_EQ(Changed(), covered);
  EXPECT_GE(covered, 2 * 10);
}

TEST_F(PenModes, LinesThatLeaveThePaneAreCut) {
  for (const int width : {1, 2, 7}) {
    Draw(PenMode::NotMaskPen, {255, 0, 0}, width);
    picture_.marks.back().x1 = -500;
    picture_.marks.back().x2 = 1e9;
  }
  Paint();
  EXPECT_EQ(At(0, 10), At(kWidth - 1, 10));
  for (int x = kWidth; x < kStride; ++x) EXPECT_EQ(At(x, 10), 0x12345678U);
}

TEST_F(PenModes, LinesOutsideThePaneAndNaNPaintNothing) {
  Draw(PenMode::NotMaskPen, {255, 0, 0}, 2);
  picture_.marks.back().y1 = picture_.marks.back().y2 = -40;
  Draw(PenMode::NotMaskPen, {255, 0, 0}, 2);
  picture_.marks.back().x1 = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(Paint().Is_Empty());
  EXPECT_EQ(Changed(), 0);
}

TEST_F(PicturePainter, FloatingMarksArePaintedOnTheirOwn) {
  Draw_Line(picture_, 5, 10, 14, 10, kInkColour);
  Show_Floating(picture_, picture_.marks);
  picture_.marks.clear();
  EXPECT_TRUE(Paint().Is_Empty());
  EXPECT_EQ(Inked(), 0);
  EXPECT_FALSE(Paint_Floating(View(), picture_).Is_Empty());
  EXPECT_EQ(Inked(), 10);
}

TEST_F(PicturePainter, ErasingDropsTheFloatingMarksToo) {
  Draw_Line(picture_, 5, 10, 14, 10, kInkColour);
  Show_Floating(picture_, picture_.marks);
  Erase_Marks(picture_);
  EXPECT_TRUE(picture_.floating.empty());
  Show_Floating(picture_, {Mark()});
  Load_Picture(picture_, nullptr);
  EXPECT_TRUE(picture_.floating.empty());
}

TEST(PaintedPicture, HasItsMarksAndTheSizeOfItsBitmap) {
  Picture picture;
  auto bitmap = std::make_shared<PaneBitmap>();
  bitmap->width = 3;
  bitmap->height = 2;
  bitmap->bgr = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
  Load_Picture(picture, bitmap);
  Plot_Point(picture, 1, 0, {200, 100, 50});
  const PaneBitmap painted = Painted_Picture(picture);
  EXPECT_EQ(painted.width, 3);
  EXPECT_EQ(painted.height, 2);
  EXPECT_EQ(painted.bgr, (std::vector<std::uint8_t>{1, 2, 3, 50, 100, 200, 7, 8, 9, 10, 11, 12, 13,
                                                    14, 15, 16, 17, 18}));
}

}  // namespace
}  // namespace sylvomex
