// SPDX-License-Identifier: MIT
#include "surfaces/window_raster.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

using Pixels = std::vector<std::uint8_t>;

constexpr int kWidth = 40, kHeight = 30;

ImageRecord Image(std::uint8_t color_flag) {
  ImageRecord image;
  image.ImageId = 7001;
  image.ColorFlag = color_flag;
  image.SubWidth = kWidth;
  image.SubHeight = kHeight;
  return image;
}

/// Grey: col + 3 raw_row. Colour: the middle byte is that, the others are 200 and 201.
Pixels Raw_File(int color_flag, int rows = kHeight) {
  Pixels bytes;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < kWidth; ++col) {
      const auto value = static_cast<std::uint8_t>(col + 3 * row);
      if (color_flag == 1) bytes.insert(bytes.end(), {200, value, 201});
      if (color_flag == 0) bytes.push_back(value);
    }
  }
  return bytes;
}

/// The pixel whose window of that side has its upper left corner at col, raw_row.
PixelPosition Middle_Of(double col, double raw_row, int side) {
  return {col + side / 2.0, kHeight - 1 - (raw_row + side / 2.0)};
}

TEST(WindowRaster, WindowLiesHalfASideUpAndLeftOfItsPixel) {
  const Pixels bytes = Raw_File(0);
  const WindowRaster raster = Make_Window_Raster(Image(0), bytes);
  // Column 20.3 - 8.5 = 11.8; raw row 29 - 14.1 - 8.5 = 6.4.
  const WindowCorner corner = Locate_Window(raster, {20.3, 14.1}, 17);
  EXPECT_EQ(corner.col, 12);
  EXPECT_EQ(corner.raw_row, 6);
}

TEST(WindowRaster, TiesRoundToEven) {
  const Pixels bytes = Raw_File(0);
  const WindowRaster raster = Make_Window_Raster(Image(0), bytes);
  // Columns 11.5 and 12.5, raw rows 6.5 and 7.5.
  EXPECT_EQ(Locate_Window(raster, {20, 14}, 17).col, 12);
  EXPECT_EQ(Locate_Window(raster, {21, 14}, 17).col, 12);
  EXPECT_EQ(Locate_Window(raster, {20, 14}, 17).raw_row, 6);
  EXPECT_EQ(Locate_Window(raster, {20, 13}, 17).raw_row, 8);
}

TEST(WindowRaster, ColourWindowsTakeTheMiddleByte) {
  const Pixels grey_bytes = Raw_File(0), colour_bytes = Raw_File(1);
  const WindowRaster grey = Make_Window_Raster(Image(0), grey_bytes);
  const WindowRaster colour = Make_Window_Raster(Image(1), colour_bytes);
  const Pixels window = Cut_Window(grey, {5, 7}, 3);
  EXPECT_EQ(window, (Pixels{26, 27, 28, 29, 30, 31, 32, 33, 34}));
  EXPECT_EQ(Cut_Window(colour, {5, 7}, 3), window);
}

TEST(WindowRaster, ThirdColourFlagLeavesTheWindowBlack) {
  const Pixels bytes = Raw_File(0);
  const WindowRaster raster = Make_Window_Raster(Image(2), bytes);
  EXPECT_EQ(Cut_Window(raster, Locate_Window(raster, {-500, 9000}, 3), 3), Pixels(9, 0));
}

TEST(WindowRaster, HoldsWindowsUpToItsEdges) {
  const Pixels bytes = Raw_File(0);
  const WindowRaster raster = Make_Window_Raster(Image(0), bytes);
  EXPECT_EQ(Locate_Window(raster, Middle_Of(0, 0, 13), 13).col, 0);
  EXPECT_EQ(Locate_Window(raster, Middle_Of(27, 17, 13), 13).raw_row, 17);
}

TEST(WindowRaster, NamesImageColumnsAndRowsOfAWindowThatLeavesIt) {
  const Pixels bytes = Raw_File(0);
  const WindowRaster raster = Make_Window_Raster(Image(0), bytes);
  EXPECT_EQ(Failure_Of([&] { Locate_Window(raster, Middle_Of(28, 17, 13), 13); }),
            "Subscript out of range: image 7001: the window of columns 28 to 40 and rows 17 to 29 "
            "leaves the raster of 40 x 30 pixels");
  EXPECT_NE(Failure_Of([&] {
              Locate_Window(raster, Middle_Of(-1, 5, 13), 13);
            }).find("columns -1 to 11 and rows 5 to 17"),
            std::string::npos);
  EXPECT_NE(Failure_Of([&] { Locate_Window(raster, Middle_Of(5, -1, 13), 13); }), "no failure");
  EXPECT_NE(Failure_Of([&] { Locate_Window(raster, Middle_Of(5, 18, 13), 13); }), "no failure");
  EXPECT_NE(Failure_Of([&] { Locate_Window(raster, {1e300, 0}, 13); }), "no failure");
}

TEST(WindowRaster, NamesTheRowsThatAShortFileHas) {
  const Pixels bytes = Raw_File(0, 20);
  const WindowRaster raster = Make_Window_Raster(Image(0), bytes);
  EXPECT_EQ(Locate_Window(raster, Middle_Of(5, 7, 13), 13).raw_row, 7);
  EXPECT_NE(Failure_Of([&] {
              Locate_Window(raster, Middle_Of(5, 8, 13), 13);
            }).find("leaves the raw file, which has 20 rows of the raster of 40 x 30 pixels"),
            std::string::npos);
}

TEST(WindowRaster, WindowsOfAStripStayInItsRows) {
  const Pixels bytes = Raw_File(1);
  WindowRaster raster = Make_Window_Raster(Image(1), bytes);
  raster.strip = RowRange{5, 20};
  EXPECT_EQ(Locate_Window(raster, Middle_Of(5, 5, 13), 13).raw_row, 5);
  EXPECT_EQ(Locate_Window(raster, Middle_Of(5, 8, 13), 13).raw_row, 8);
  EXPECT_NE(Failure_Of([&] {
              Locate_Window(raster, Middle_Of(5, 4, 13), 13);
            }).find("rows 4 to 16 leaves the strip of rows 5 to 20"),
            std::string::npos);
  EXPECT_NE(Failure_Of([&] { Locate_Window(raster, Middle_Of(5, 9, 13), 13); }), "no failure");
}

TEST(WindowRaster, StripMayReachOutOfTheFile) {
  const Pixels bytes = Raw_File(1);
  WindowRaster raster = Make_Window_Raster(Image(1), bytes);
  raster.strip = RowRange{-1500, 1499};
  EXPECT_EQ(Locate_Window(raster, Middle_Of(5, 0, 13), 13).raw_row, 0);
  EXPECT_NE(Failure_Of([&] { Locate_Window(raster, Middle_Of(5, -1, 13), 13); }), "no failure");
  EXPECT_NE(Failure_Of([&] { Locate_Window(raster, Middle_Of(5, 18, 13), 13); }), "no failure");
}

/// Every window of the raster through a set, pixel by pixel as Cut_Window has it.
void Expect_Same_Windows(int color_flag) {
  const Pixels bytes = Raw_File(color_flag);
  const WindowRaster raster =
      Make_Window_Raster(Image(static_cast<std::uint8_t>(color_flag)), bytes);
  constexpr int kSide = 13;
  WindowSet set(raster, kSide, 1000);
  std::vector<WindowCorner> corners;
  for (std::int64_t row = 0; row + kSide <= kHeight; ++row) {
    for (std::int64_t col = 0; col + kSide <= kWidth; ++col) corners.push_back({col, row});
  }
  for (const WindowCorner& corner : corners) set.Add(corner);
  for (std::size_t k = 0; k < corners.size(); ++k) {
    const MovingWindow& window = set.Windows()[k];
    Pixels pixels;
    for (int row = 0; row < kSide; ++row) {
      const std::uint8_t* first = window.first + row * window.stride;
      pixels.insert(pixels.end(), first, first + kSide);
    }
    ASSERT_EQ(pixels, Cut_Window(raster, corners[k], kSide)) << k;
  }
}

TEST(WindowSet, HoldsGreyWindowsAsTheyAre) { Expect_Same_Windows(0); }
TEST(WindowSet, HoldsColourWindowsAsTheyAre) { Expect_Same_Windows(1); }

TEST(WindowSet, ReadsNothingBehindTheFile) {
  // The last window ends with the file: in place, 32 bytes of its rows would reach behind.
  const Pixels bytes = Raw_File(0);
  const WindowRaster raster = Make_Window_Raster(Image(0), bytes);
  WindowSet set(raster, 13, 2);
  set.Add({0, 0});
  set.Add({27, 17});
  const std::uint8_t* const end = bytes.data() + bytes.size();
  EXPECT_EQ(set.Windows()[0].first, bytes.data());
  const std::uint8_t* const last = set.Windows()[1].first;
  EXPECT_TRUE(last < bytes.data() || last >= end);
}

}  // namespace
}  // namespace sylvomex
