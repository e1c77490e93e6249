// SPDX-License-Identifier: MIT
#include "desktop/mark_painter.h"

#include <gtest/gtest.h>

#include <limits>

namespace sylvomex {
namespace {

constexpr QRgb kPaper = 0xfff0f0f0;  // an empty pane
constexpr QRgb kInk = 0xffff0000;
constexpr Colour kInkColour{255, 0, 0};

class MarkPainter : public testing::Test {
 protected:
  QImage Paint() const {
    QImage image = Paint_Bitmap(picture_, QSize(40, 30));
    Paint_Marks(image, picture_, 0);
    return image;
  }

  static int Inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) != kPaper ? 1 : 0;
    }
    return count;
  }

  Picture picture_;
};

TEST_F(MarkPainter, PointOfWidthOneIsOnePixelAtTheNearestPosition) {
  Plot_Point(picture_, 10.4, 20.6, kInkColour);
  const QImage image = Paint();
  EXPECT_EQ(Inked(image), 1);
  EXPECT_EQ(image.pixel(10, 21), kInk);
}

TEST_F(MarkPainter, PointOfWidthThreeIsASquareAroundItsPosition) {
  picture_.DrawWidth = 3;
  Plot_Point(picture_, 10, 20, kInkColour);
  const QImage image = Paint();
  EXPECT_EQ(Inked(image), 9);
  EXPECT_EQ(image.pixel(9, 19), kInk);
  EXPECT_EQ(image.pixel(11, 21), kInk);
}

TEST_F(MarkPainter, PointAtTheEdgeIsCut) {
  picture_.DrawWidth = 3;
  Plot_Point(picture_, 0, 0, kInkColour);
  EXPECT_EQ(Inked(Paint()), 4);
}

TEST_F(MarkPainter, PositionsFarOutsideAndNaNPaintNothing) {
  const double not_a_number = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  Plot_Point(picture_, 1e300, 5, kInkColour);
  Plot_Point(picture_, not_a_number, 5, kInkColour);
  Draw_Line(picture_, not_a_number, 0, 10, 10, kInkColour);
  Draw_Line(picture_, 5, 5, infinite, 10, kInkColour);
  picture_.CurrentX = -1e12;
  Print_Text(picture_, "far");
  EXPECT_EQ(Inked(Paint()), 0);
}

TEST_F(MarkPainter, HorizontalLineCoversBothEnds) {
  Draw_Line(picture_, 5, 10, 14, 10, kInkColour);
  const QImage image = Paint();
  EXPECT_EQ(Inked(image), 10);
  EXPECT_EQ(image.pixel(5, 10), kInk);
  EXPECT_EQ(image.pixel(14, 10), kInk);
}

TEST_F(MarkPainter, LineWhoseEndsLieFarOutsideStillCrossesThePane) {
  Draw_Line(picture_, -1e9, 15, 1e9, 15, kInkColour);
  EXPECT_EQ(Inked(Paint()), 40);
}

TEST_F(MarkPainter, TextHangsBelowItsPosition) {
  picture_.ForeColor = kInkColour;
  picture_.CurrentX = 4;
  picture_.CurrentY = 8;
  Print_Text(picture_, "H");
  const QImage image = Paint();
  EXPECT_GT(Inked(image), 5);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 40; ++x) EXPECT_EQ(image.pixel(x, y), kPaper);
  }
}

TEST_F(MarkPainter, LaterMarksLieOverEarlierOnes) {
  Draw_Line(picture_, 0, 10, 39, 10, {0, 0, 255});
  Plot_Point(picture_, 20, 10, kInkColour);
  EXPECT_EQ(Paint().pixel(20, 10), kInk);
}

TEST_F(MarkPainter, TellsThePixelsThatItTouched) {
  picture_.DrawWidth = 3;
  Plot_Point(picture_, 10, 20, kInkColour);
  Plot_Point(picture_, 15, 22, kInkColour);
  QImage image = Paint_Bitmap(picture_, QSize(40, 30));
  EXPECT_EQ(Paint_Marks(image, picture_, 0), QRect(QPoint(9, 19), QPoint(16, 23)));
  EXPECT_EQ(Paint_Marks(image, picture_, 1), QRect(QPoint(14, 21), QPoint(16, 23)));
}

TEST_F(MarkPainter, BitmapKeepsItsPixelsAndTheRestIsEmpty) {
  auto bitmap = std::make_shared<PaneBitmap>();
  bitmap->width = 2;
  bitmap->height = 1;
  bitmap->bgr = {1, 2, 3, 4, 5, 6};
  Load_Picture(picture_, bitmap);
  const QImage image = Paint();
  EXPECT_EQ(image.pixel(0, 0), qRgb(3, 2, 1));
  EXPECT_EQ(image.pixel(1, 0), qRgb(6, 5, 4));
  EXPECT_EQ(image.pixel(2, 0), kPaper);
}

// 8 points at 96 pixels an inch are 10.67 pixels.
TEST(ScreenFont, SizeIsInPixelsOf96AnInch) {
  EXPECT_EQ(Screen_Font({"Arial", 20, true}).pixelSize(), 27);
  EXPECT_EQ(Screen_Font({"MS Sans Serif", 8, false}).pixelSize(), 11);
  EXPECT_TRUE(Screen_Font({"Arial", 20, true}).bold());
}

}  // namespace
}  // namespace sylvomex
