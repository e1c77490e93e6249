// SPDX-License-Identifier: MIT
#include "matching/template_cutting.h"

#include <numbers>

#include "matching/test_photo.h"

namespace sylvomex {
namespace {

constexpr double kPixel = 1e-5;  // metres on the film

// A raw file of 200 x 160 pixels whose first pixel is full-image column 400, top-down row 420.
ImageRecord Part_Of_Photo() {
  ImageRecord image = Test_Photo();
  image.SubWidth = 200;
  image.SubHeight = 160;
  image.SubColOrigin = 400;
  image.SubRowOrigin = 420;
  return image;
}

// An ellipse around raw column 100, raw row 80: full-image column 500, row 1000 - 500 = 500, the
// principal point.
TemplateRecord Ellipse(double radial_pixels, double tangential_pixels, double angle = 0) {
  TemplateRecord ellipse;
  ellipse.SemiAxisRadial = radial_pixels * kPixel;
  ellipse.SemiAxisTangential = tangential_pixels * kPixel;
  ellipse.RadialAngle = angle;
  return ellipse;
}

CutTemplate Cut(const TemplateRecord& ellipse, const ImageRecord& image = Part_Of_Photo()) {
  const std::vector<std::uint8_t> raw = Raw_Of(image);
  return Cut_Template(image, Pixels_Of(image, raw), ellipse);
}

int At(const CutTemplate& cut, int col, int row) {
  return cut.pattern.pixels.at(static_cast<std::size_t>(row * cut.pattern.width + col));
}

TEST(CutTemplate, ACircleKeepsItsPixelsInItsBoundingBox) {
  // Offsets with dx^2 + dy^2 < 3.5^2: -3 to 3, but neither (3, 3) nor (3, 2).
  const CutTemplate cut = Cut(Ellipse(3.5, 3.5));
  ASSERT_EQ(cut.pattern.width, 7);
  ASSERT_EQ(cut.pattern.height, 7);
  for (int j = -3; j <= 3; ++j) {
    for (int i = -3; i <= 3; ++i) {
      const bool inside = i * i + j * j < 12.25;
      EXPECT_EQ(At(cut, i + 3, j + 3), inside ? Grey_At(100 + i, 80 + j) : 0) << i << " " << j;
    }
  }
  EXPECT_TRUE(cut.cols_defined);
  EXPECT_TRUE(cut.rows_defined);
}

TEST(CutTemplate, WithoutAShiftTheReferenceIsTheCentre) {
  const CutTemplate cut = Cut(Ellipse(5.5, 3.5));
  EXPECT_EQ(cut.pattern.reference_col, 5);  // 50 - first column 45
  EXPECT_EQ(cut.pattern.reference_row, 3);
}

TEST(CutTemplate, TheReferenceMovesWithTheShiftsAndMayLeaveTheTemplate) {
  TemplateRecord ellipse = Ellipse(3.5, 3.5);
  ellipse.ShiftCol = 5;
  ellipse.ShiftRow = 4;
  const CutTemplate cut = Cut(ellipse);
  EXPECT_EQ(cut.pattern.reference_col, 8);
  EXPECT_EQ(cut.pattern.reference_row, -1);  // image rows count upwards
}

TEST(CutTemplate, TheLongAxisLiesAlongTheRadialAngle) {
  const CutTemplate upright = Cut(Ellipse(5.5, 1.5, std::numbers::pi / 2));
  EXPECT_EQ(upright.pattern.width, 3);
  EXPECT_EQ(upright.pattern.height, 11);
  // 45 degrees: to the right and up, which is towards smaller raw rows.
  const CutTemplate leaning = Cut(Ellipse(6, 1.2, std::numbers::pi / 4));
  const int c = leaning.pattern.reference_col, r = leaning.pattern.reference_row;
  EXPECT_EQ(At(leaning, c + 4, r - 4), Grey_At(104, 76));
  EXPECT_EQ(At(leaning, c - 4, r + 4), Grey_At(96, 84));
  EXPECT_EQ(At(leaning, c + 4, r + 4), 0);
}

TEST(CutTemplate, AColourPixelUsesItsMiddleByteAGreyOneItsOnlyByte) {
  ImageRecord colour = Part_Of_Photo();
  colour.ColorFlag = 1;
  EXPECT_EQ(At(Cut(Ellipse(3.5, 3.5), colour), 3, 3), Grey_At(100, 80));
  EXPECT_EQ(At(Cut(Ellipse(3.5, 3.5)), 3, 3), Grey_At(100, 80));
}

TEST(CutTemplate, AxesWiderThanTheWindowDefineNoBorders) {
  const CutTemplate cut = Cut(Ellipse(90, 90));
  EXPECT_FALSE(cut.cols_defined);
  EXPECT_FALSE(cut.rows_defined);
  EXPECT_EQ(cut.pattern.width, 101);
  EXPECT_EQ(cut.pattern.height, 101);
  EXPECT_EQ(cut.pattern.reference_col, 50);
}

TEST(CutTemplate, AnEllipseThatTouchesTheLastColumnDefinesNoColumnBorders) {
  const CutTemplate cut = Cut(Ellipse(50.5, 2.5));
  EXPECT_FALSE(cut.cols_defined);
  EXPECT_TRUE(cut.rows_defined);
  EXPECT_EQ(cut.pattern.width, 101);
  EXPECT_EQ(cut.pattern.height, 5);
  const CutTemplate inside = Cut(Ellipse(49.5, 2.5));
  EXPECT_TRUE(inside.cols_defined);
  EXPECT_EQ(inside.pattern.width, 99);
}

TEST(CutTemplate, AnEllipseBetweenThePixelsLeavesTheWholeWindow) {
  TemplateRecord ellipse = Ellipse(0.2, 0.2);
  ellipse.CenterX = ellipse.CenterY = 0.4 * kPixel;
  const CutTemplate cut = Cut(ellipse);
  EXPECT_FALSE(cut.cols_defined);
  EXPECT_FALSE(cut.rows_defined);
  EXPECT_EQ(cut.pattern.width, 101);
  EXPECT_EQ(cut.pattern.pixels, std::vector<std::uint8_t>(101 * 101, 0));
}

TEST(CutTemplate, AnEllipseWithoutWidthIsADivisionByZero) {
  const std::string text = Failure_Of(Failure::DivisionByZero, [] { Cut(Ellipse(3, 0)); });
  EXPECT_NE(text.find("image 17"), std::string::npos);
}

// The raw file's first column lies 100 pixels left of the centre, its last row 79 below.
TEST(CutTemplate, AWindowThatLeavesTheRawFileIsCutWhereTheEllipseStaysInside) {
  TemplateRecord ellipse = Ellipse(3.5, 3.5);
  ellipse.CenterX = -97 * kPixel;
  ellipse.CenterY = -76 * kPixel;  // raw column 3, raw row 156: columns 0 to 6, rows 153 to 159
  const CutTemplate cut = Cut(ellipse);
  EXPECT_EQ(cut.pattern.width, 7);
  EXPECT_EQ(cut.pattern.height, 7);
  EXPECT_EQ(At(cut, 0, 3), Grey_At(0, 156));
  EXPECT_EQ(At(cut, 3, 6), Grey_At(3, 159));
  EXPECT_EQ(At(cut, 0, 0), 0);
  EXPECT_TRUE(cut.cols_defined && cut.rows_defined);
}

TEST(CutTemplate, AnEllipseOnePixelOverTheEdgeIsAFailure) {
  for (const double beyond : {-98.0, 98.0}) {  // raw columns -1 to 5 and 195 to 201
    TemplateRecord ellipse = Ellipse(3.5, 3.5);
    ellipse.CenterX = beyond * kPixel;
    Failure_Of(Failure::SubscriptOutOfRange, [&ellipse] { Cut(ellipse); });
  }
}

TEST(CutTemplate, AnEllipseBetweenThePixelsOutsideTheRawFileIsAFailure) {
  TemplateRecord ellipse = Ellipse(0.2, 0.2);
  ellipse.CenterX = 150.4 * kPixel;
  Failure_Of(Failure::SubscriptOutOfRange, [&ellipse] { Cut(ellipse); });
}

TEST(CutTemplate, AnEllipseOutsideTheRawFileIsAFailureNotWrongPixels) {
  for (const double offset : {-110.0, 110.0}) {
    TemplateRecord ellipse = Ellipse(3.5, 3.5);
    ellipse.CenterX = offset * kPixel;
    const std::string text = Failure_Of(Failure::SubscriptOutOfRange, [&ellipse] { Cut(ellipse); });
    EXPECT_NE(text.find("200 x 160"), std::string::npos);
    ellipse.CenterX = 0;
    ellipse.CenterY = offset * kPixel;
    Failure_Of(Failure::SubscriptOutOfRange, [&ellipse] { Cut(ellipse); });
  }
}

}  // namespace
}  // namespace sylvomex
