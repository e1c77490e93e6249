// SPDX-License-Identifier: MIT
#include "session/picture_png.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <array>

#include "platform/run_time_error.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

/// A PNG read from disk.
struct ReadPng {
  explicit ReadPng(const std::filesystem::path& file)
      : surface(cairo_image_surface_create_from_png(file.c_str())) {}
  ~ReadPng() { cairo_surface_destroy(surface); }
  ReadPng(const ReadPng&) = delete;
  ReadPng& operator=(const ReadPng&) = delete;

  int Width() const { return cairo_image_surface_get_width(surface); }
  int Height() const { return cairo_image_surface_get_height(surface); }
  std::array<int, 3> At(int x, int y) const {
    const unsigned char* pixel =
        cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface) + 4 * x;
    return {pixel[2], pixel[1], pixel[0]};
  }

  cairo_surface_t* surface;
};

constexpr std::array<int, 3> kBlack{0, 0, 0};
constexpr std::array<int, 3> kRed{255, 0, 0};

struct PicturePngTest : testing::Test {
  TemporaryFolder folder;
  Picture picture;
  std::filesystem::path file = folder.Path() / "a.png";

  PicturePngTest() {
    auto bitmap = std::make_shared<PaneBitmap>();
    bitmap->width = 12;
    bitmap->height = 8;
    bitmap->bgr.assign(12 * 8 * 3, 0);
    bitmap->bgr[3] = 10;  // blue, green and red of column 1, row 0
    bitmap->bgr[4] = 20;
    bitmap->bgr[5] = 30;
    Load_Picture(picture, bitmap);
    picture.Width = 16;
    picture.Height = 12;
  }
};

TEST_F(PicturePngTest, HasTheInsideOfThePaneAndItsBitmap) {
  Save_Picture_Png(picture, file);
  const ReadPng png(file);
  EXPECT_EQ(png.Width(), 12);
  EXPECT_EQ(png.Height(), 8);
  EXPECT_EQ(png.At(1, 0), (std::array{30, 20, 10}));
  EXPECT_EQ(png.At(0, 0), kBlack);
}

TEST_F(PicturePngTest, PointIsASquareOfThePenWidthAroundItsPixel) {
  picture.DrawWidth = 3;
  Plot_Point(picture, 5, 4, {255, 0, 0});
  picture.DrawWidth = 1;
  Plot_Point(picture, 10, 6, {255, 0, 0});
  Save_Picture_Png(picture, file);
  const ReadPng png(file);
  int red = 0;
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 12; ++x) red += png.At(x, y) == kRed ? 1 : 0;
  }
  EXPECT_EQ(red, 10);
  EXPECT_EQ(png.At(4, 3), kRed);
  EXPECT_EQ(png.At(6, 5), kRed);
  EXPECT_EQ(png.At(10, 6), kRed);
}

TEST_F(PicturePngTest, LineCoversItsPixels) {
  Draw_Line(picture, 2, 3, 9, 3, {255, 0, 0});
  Save_Picture_Png(picture, file);
  const ReadPng png(file);
  for (int x = 3; x < 9; ++x) EXPECT_EQ(png.At(x, 3), kRed) << x;
  EXPECT_EQ(png.At(5, 2), kBlack);
  EXPECT_EQ(png.At(5, 4), kBlack);
}

TEST_F(PicturePngTest, MarksOutsideThePaneAreHarmless) {
  Plot_Point(picture, -1e9, 1e9, {255, 0, 0});
  Draw_Line(picture, -1e7, -1e7, -1e6, 1e7, {255, 0, 0});
  Save_Picture_Png(picture, file);
  EXPECT_EQ(ReadPng(file).At(0, 7), kBlack);
}

TEST_F(PicturePngTest, TextPaintsBelowItsTopLeftCorner) {
  picture.ForeColor = {255, 0, 0};
  picture.font = {"Arial", 6, true};
  picture.CurrentX = 0;
  picture.CurrentY = 0;
  Print_Text(picture, "MMM");
  Save_Picture_Png(picture, file);
  const ReadPng png(file);
  int painted = 0;
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 12; ++x) painted += png.At(x, y)[0] > 200 ? 1 : 0;
  }
  EXPECT_GT(painted, 0);
}

TEST_F(PicturePngTest, PictureWithoutASizeIsRejected) {
  EXPECT_THROW(Save_Picture_Png(Picture(), file), RunTimeError);
}

TEST_F(PicturePngTest, FileThatCannotBeWrittenIsNamed) {
  try {
    Save_Picture_Png(picture, folder.Path() / "none" / "a.png");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_NE(std::string(error.what()).find("none/a.png"), std::string::npos);
  }
}

}  // namespace
}  // namespace sylvomex
