// SPDX-License-Identifier: MIT
#include "matching/patch_geometry.h"

#include "matching/test_photo.h"

namespace sylvomex {
namespace {

const Report kNoReport = [](std::string_view text) { ADD_FAILURE() << text; };

ImageRecord Photo_With_Pixel(double pixel_side) {
  ImageRecord image = Test_Photo();
  image.AffineA1 = image.AffineB2 = 1 / pixel_side;
  return image;
}

TEST(PixelSide, WholeMicrometresFromTheAffine) {
  EXPECT_EQ(Pixel_Side_Micrometres(Test_Photo(), kNoReport), 10);
  EXPECT_EQ(Pixel_Side_Micrometres(Photo_With_Pixel(14.4e-6), kNoReport), 14);
  EXPECT_EQ(Pixel_Side_Micrometres(Photo_With_Pixel(14.6e-6), kNoReport), 15);
}

TEST(PixelSide, BeyondSixteenBitsIsAnOverflow) {
  Failure_Of(Failure::Overflow, [] { Pixel_Side_Micrometres(Photo_With_Pixel(0.04), kNoReport); });
}

TEST(PixelSide, AMirroredAffineIsReportedAndUsesATenthOfAMillimetre) {
  ImageRecord image = Test_Photo();
  image.AffineB2 = -image.AffineB2;
  std::string told;
  EXPECT_EQ(Pixel_Side_Micrometres(image, [&told](std::string_view text) { told = text; }), 100);
  EXPECT_EQ(told, "Square root of negative argument!");
}

TEST(PixelSide, AnAffineWithoutAreaIsADivisionByZero) {
  ImageRecord image = Test_Photo();
  image.AffineB2 = 0;
  Failure_Of(Failure::DivisionByZero, [&image] { Pixel_Side_Micrometres(image, kNoReport); });
}

TEST(GroundPixelSide, GrowsWithTheHeightAboveThePlot) {
  // 10 um x 1000 m / 0.1 m.
  EXPECT_NEAR(Ground_Pixel_Side(Test_Photo(), 10, 0), 0.1, 1e-15);
  EXPECT_NEAR(Ground_Pixel_Side(Test_Photo(), 10, 200), 0.08, 1e-15);
}

TEST(PatchSide, IsTheNextValueOfTheSeries) {
  EXPECT_EQ(Patch_Side(80.5, 0.1), 901);  // 805 pixels
  EXPECT_EQ(Patch_Side(10.1, 0.1), 101);
  EXPECT_EQ(Patch_Side(10.05, 0.1), 101);  // 100.5 to the even 100
  EXPECT_EQ(Patch_Side(10.16, 0.1), 201);  // 101.6
  EXPECT_EQ(Patch_Side(0.1, 0.1), 1);
}

TEST(PatchSide, RadiusZeroGivesOnePixel) { EXPECT_EQ(Patch_Side(0, 0.1), 1); }

TEST(PatchSide, TheSeriesEndsAtTenThousandAndOne) {
  EXPECT_EQ(Patch_Side(10001, 1), 10001);
  EXPECT_EQ(Patch_Side(10002, 1), std::nullopt);
  EXPECT_EQ(Patch_Side(1e15, 0.1), std::nullopt);
}

TEST(PatchSide, AGroundPixelWithoutSizeIsADivisionByZero) {
  Failure_Of(Failure::DivisionByZero, [] { Patch_Side(80.5, 0); });
}

RawWindow Window_At(double X, double Y, int side) {
  return Place_Patch(Test_Photo(), Upright(Test_Photo()), {X, Y, 0}, side).window;
}

TEST(PlacePatch, LiesAroundThePlotInRowsFromTheTop) {
  // The origin: column 500, row 500, raw row 1001 - 1 - 500 = 500. 30 m north is 300 rows up.
  const RawWindow window = Window_At(0, 0, 101);
  EXPECT_EQ(window.first_col, 450);
  EXPECT_EQ(window.last_col, 550);
  EXPECT_EQ(window.top_row, 450);
  EXPECT_EQ(window.bottom_row, 550);
  EXPECT_EQ(Window_At(0, 30, 101).top_row, 150);
}

TEST(PlacePatch, CountsFromTheRawFilesOrigin) {
  ImageRecord image = Test_Photo();
  image.SubWidth = image.SubHeight = 400;
  image.SubColOrigin = 200;
  image.SubRowOrigin = 350;
  const RawWindow window = Place_Patch(image, Upright(image), {0, 0, 0}, 101).window;
  EXPECT_EQ(window.first_col, 250);  // raw column 300
  EXPECT_EQ(window.top_row, 100);    // raw row 150
}

TEST(PlacePatch, BeyondTheRightEdgeItIsOneColumnWiderBeyondTheOthersNot) {
  const RawWindow right = Window_At(48, 0, 101);  // column 980
  EXPECT_EQ(right.last_col, 999);
  EXPECT_EQ(right.Width(), 102);
  EXPECT_EQ(right.Height(), 101);
  const RawWindow left = Window_At(-48, 0, 101);
  EXPECT_EQ(left.first_col, 0);
  EXPECT_EQ(left.Width(), 101);
  const RawWindow top = Window_At(0, 48, 101);
  EXPECT_EQ(top.top_row, 0);
  EXPECT_EQ(top.Height(), 101);
  const RawWindow bottom = Window_At(0, -48, 101);
  EXPECT_EQ(bottom.bottom_row, 999);
  EXPECT_EQ(bottom.Height(), 101);
}

TEST(PlacePatch, AsWideAsTheRawFileBeyondTheRightEdgeItLeavesTheFile) {
  ImageRecord image = Test_Photo();
  image.SubWidth = 101;
  image.SubColOrigin = 420;  // the plot in column 80, one column more than fits
  const PatchPlace place = Place_Patch(image, Upright(image), {0, 0, 0}, 101);
  EXPECT_EQ(place.window.first_col, -1);
  Failure_Of(Failure::SubscriptOutOfRange,
             [&] { Read_Raw_Window(image, Pixels_Of(image, {}), place.window, ColourRule::Mean); });
}

TEST(PlacePatch, LargerThanTheRawFileItIsTheWholeFile) {
  const PatchPlace place = Place_Patch(Test_Photo(), Upright(Test_Photo()), {0, 0, 0}, 1001);
  EXPECT_FALSE(place.fits);
  EXPECT_EQ(place.window.Width(), 1000);
  EXPECT_EQ(place.window.top_row, 0);
  EXPECT_EQ(place.window.bottom_row, 999);
}

TEST(PlacePatch, APlotBeyondSixteenBitsOfPixelsIsAnOverflow) {
  Failure_Of(Failure::Overflow, [] { Window_At(1e6, 0, 101); });
}

TEST(CorrelationRecord, CountsItsRowOriginFromTheBottom) {
  ImageRecord image = Test_Photo();
  image.ColorFlag = 1;
  image.SubColOrigin = 20;
  image.SubRowOrigin = 30;
  image.Omega = 0.25;
  image.CameraReserved(3) = 4.5;
  const ImageRecord record =
      Correlation_Record(image, {100, 219, 200, 299}, "c:\\data\\ccor_ima2.raw");
  EXPECT_EQ(record.SubWidth, 120);
  EXPECT_EQ(record.SubHeight, 100);
  EXPECT_EQ(record.RawFileName.Trimmed(), "c:\\data\\ccor_ima2.raw");
  EXPECT_EQ(record.ColorFlag, 0);
  EXPECT_EQ(record.StartCol, 1);
  EXPECT_EQ(record.StartRow, 1);
  EXPECT_EQ(record.SubColOrigin, 120);
  EXPECT_EQ(record.SubRowOrigin, 1001 - 1 - 30 - 200);
  EXPECT_EQ(record.FullWidth, 1000);
  EXPECT_EQ(record.FullHeight, 1001);
  EXPECT_EQ(record.PrincipalDistance, 0.1);
  EXPECT_EQ(record.CameraReserved(3), 4.5);
  EXPECT_EQ(record.AffineA1, 100000);
  EXPECT_EQ(record.Omega, 0.25);
  EXPECT_EQ(record.Z0, 1000);
}

}  // namespace
}  // namespace sylvomex
