// SPDX-License-Identifier: MIT
#include "commands/crowns/multi_size_check.h"

#include <gtest/gtest.h>

#include "commands/solver/point_intersection.h"
#include "support/synthetic_block.h"

namespace sylvomex {
namespace {

// A texture without repetition: scrambled pixel numbers (xorshift-multiply).
std::uint8_t Texture(int col, int raw_row) {
  std::uint32_t n = static_cast<std::uint32_t>(col + 1000 * raw_row) * 2654435761U;
  n = (n ^ (n >> 15U)) * 2246822519U;
  return static_cast<std::uint8_t>((n ^ (n >> 13U)) >> 8U);
}

// Cameras over a raw file of 200 columns and 400 rows in which only the middle bytes matter.
// The raw file starts at the full image's first column; its rows count by its own height.
struct TexturedImage : SyntheticBlock {
  static constexpr int kColumns = 200, kRows = 400;
  TexturedImage() {
    Add_Camera(0, 0, 1000);
    Add_Camera(10, 0, 1000);
    ImageRecord& record = w.ImageBlock(0);
    record.SubWidth = kColumns;
    record.SubHeight = kRows;
    record.RawFileName = "c:\\data\\image.raw";
    record.AffineA0 = 100;
    record.AffineB0 = 200;
    std::string bytes;
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kColumns; ++col) {
        bytes += '\xff';
        bytes += static_cast<char>(Texture(col, row));
        bytes += '\0';
      }
    }
    folder.Write("c/data/image.raw", bytes);
  }
  // 5 by 3 pixels with the reference pixel in their middle, cut around a place.
  void Write_Template(int size, int col, int raw_row) {
    const std::string name = "c/data/test_0_" + std::to_string(size);
    folder.Write(name + ".img", " 5 3 2 1 \n");
    std::string bytes;
    for (int row = raw_row - 1; row <= raw_row + 1; ++row) {
      for (int c = col - 2; c <= col + 2; ++c) bytes += static_cast<char>(Texture(c, row));
    }
    folder.Write(name + ".raw", bytes);
  }
  void Write_All_Templates() {
    for (int size = 1; size <= 11; ++size) Write_Template(size, 100, 199);
  }
  Failure Failure_At(double X, double Y) {
    try {
      Multi_Size_Check(w, 0, {X, Y, 0});
    } catch (const RunTimeError& error) {
      return error.Kind();
    }
    ADD_FAILURE() << "no failure";
    return Failure::OutOfMemory;
  }
};

TEST(MultiSizeCheck, WithoutTemplatesItEndsBeforeItReadsABand) {
  TexturedImage b;
  std::filesystem::remove(b.folder.Path() / "c/data/image.raw");
  Multi_Size_Check(b.w, 0, {0, 0, 0});
  EXPECT_TRUE(b.Marks(0).empty());
  EXPECT_TRUE(b.screen.messages.empty());
}

TEST(MultiSizeCheck, AMissingSizeEndsItQuietly) {
  TexturedImage b;
  b.Write_All_Templates();
  std::filesystem::remove(b.folder.Path() / "c/data/test_0_7.img");
  Multi_Size_Check(b.w, 0, {0, 0, 0});
  EXPECT_TRUE(b.Marks(0).empty());
}

TEST(MultiSizeCheck, MarksThePointOnAllPanes) {
  TexturedImage b;
  b.Write_All_Templates();
  for (int k = 0; k < 2; ++k) b.w.Form1.Picture1(k).font.size = 20;
  Multi_Size_Check(b.w, 0, {0, 0, 0});
  ASSERT_EQ(b.Marks(0).size(), 1U);
  ASSERT_EQ(b.Marks(1).size(), 1U);
  EXPECT_NEAR(b.Marks(0)[0].x1, 100 - 1, 1e-6);
  EXPECT_NEAR(b.Marks(0)[0].y1, 1999 - 200 - 1, 1e-6);
  const PanePosition at = b.Pane_Of(1, {0, 0, 0});
  EXPECT_NEAR(b.Marks(1)[0].x1, at.px - 1, 1e-6);
  EXPECT_NEAR(b.Marks(1)[0].y1, at.py - 1, 1e-6);
  EXPECT_EQ(b.Marks(1)[0].colour, (Colour{255, 255, 0}));
  EXPECT_EQ(b.Marks(1)[0].width, 3);
  EXPECT_EQ(b.w.Form1.Picture1(0).DrawWidth, 2);
  EXPECT_EQ(b.w.Form1.Picture1(0).font.size, 8);
}

TEST(MultiSizeCheck, AWindowThatLeavesTheBandIsASubscriptError) {
  TexturedImage b;
  b.Write_All_Templates();
  // 0.1 m on the ground is one pixel: 95 pixels to the left leave no room for the shifts.
  EXPECT_EQ(b.Failure_At(-9.5, 0), Failure::SubscriptOutOfRange);
  EXPECT_EQ(b.Failure_At(9.5, 0), Failure::SubscriptOutOfRange);
  b.folder.Write("c/data/test_0_1.img", "5 141 2 70");
  b.folder.Write("c/data/test_0_1.raw", std::string(5 * 141, 'a'));
  EXPECT_EQ(b.Failure_At(0, 0), Failure::SubscriptOutOfRange);
  EXPECT_TRUE(b.Marks(0).empty());
}

// Points whose window also lies left of the raster show whether the band was searched.
TEST(MultiSizeCheck, ABandThatLeavesTheRasterIsNotSearchedAndThePointIsMarked) {
  TexturedImage b;
  b.Write_All_Templates();
  Multi_Size_Check(b.w, 0, {-9.5, 15, 0});  // raw row 49: the band begins at row -21
  EXPECT_EQ(b.Marks(0).size(), 1U);
  EXPECT_EQ(b.Marks(1).size(), 1U);
  Multi_Size_Check(b.w, 0, {-9.5, -15, 0});  // raw row 349: it ends with row 418 of 399
  EXPECT_EQ(b.Marks(0).size(), 2U);
  EXPECT_TRUE(b.screen.messages.empty());
}

TEST(MultiSizeCheck, ABandThatEndsWithTheRasterIsSearched) {
  TexturedImage b;
  b.Write_All_Templates();
  EXPECT_EQ(b.Failure_At(-9.5, 12.9), Failure::SubscriptOutOfRange);   // raw row 70
  EXPECT_EQ(b.Failure_At(-9.5, -13.1), Failure::SubscriptOutOfRange);  // raw row 330
  Multi_Size_Check(b.w, 0, {-9.5, 13.0, 0});                           // raw row 69
  Multi_Size_Check(b.w, 0, {-9.5, -13.2, 0});                          // raw row 331
  EXPECT_EQ(b.Marks(0).size(), 2U);
}

TEST(MultiSizeCheck, WithoutTemplatesNothingIsMarkedWhereTheBandLeavesTheRaster) {
  TexturedImage b;
  Multi_Size_Check(b.w, 0, {0, 15, 0});
  EXPECT_TRUE(b.Marks(0).empty());
}

TEST(MultiSizeCheck, AnIntersectionOnASubImageGoesToItsEnd) {
  TexturedImage b;
  b.Write_All_Templates();
  b.w.ImageBlock(0).SubHeight = 100;  // full-image rows 200 and above lie outside by its height
  b.w.Solution3D = {0.5, 0.5, 1};
  b.Observe(0, {0, 0, 0});
  b.Observe(1, {0, 0, 0});
  Point_Intersection(b.w);
  ASSERT_EQ(b.Marks(1).size(), 10U);
  EXPECT_EQ(b.Marks(1)[9].colour, (Colour{255, 255, 0}));
}

TEST(MultiSizeCheck, BrokenTemplateFilesAreNamed) {
  TexturedImage b;
  b.Write_All_Templates();
  b.folder.Write("c/data/test_0_3.raw", "short");
  EXPECT_EQ(b.Failure_At(0, 0), Failure::InputPastEnd);
  std::filesystem::remove(b.folder.Path() / "c/data/test_0_3.raw");
  EXPECT_EQ(b.Failure_At(0, 0), Failure::FileNotFound);
  b.folder.Write("c/data/test_0_3.img", "0 3 2 1");
  EXPECT_EQ(b.Failure_At(0, 0), Failure::BadContent);
  b.folder.Write("c/data/test_0_3.img", "5 3 2");
  EXPECT_EQ(b.Failure_At(0, 0), Failure::InputPastEnd);
}

TEST(MultiSizeCheck, AColumnBeyond32BitsNamesTheImage) {
  TexturedImage b;
  b.Write_All_Templates();
  b.w.ImageBlock(0).ImageId = 4711;
  b.w.ImageBlock(0).AffineA0 = 1e12;
  EXPECT_EQ(b.Failure_At(0, 0), Failure::Overflow);
  ASSERT_EQ(b.screen.causes.size(), 1U);
  EXPECT_EQ(b.screen.causes[0].find("image 0 (4711), "), 0U) << b.screen.causes[0];
}

TEST(MultiSizeCheck, IsTheLastActOfAnIntersection) {
  TexturedImage b;
  b.Write_All_Templates();
  b.w.Solution3D = {0.5, 0.5, 1};
  b.Observe(0, {0, 0, 0});
  b.Observe(1, {0, 0, 0});
  Point_Intersection(b.w);
  ASSERT_EQ(b.Marks(1).size(), 10U);
  EXPECT_EQ(b.Marks(1)[9].colour, (Colour{255, 255, 0}));
}

}  // namespace
}  // namespace sylvomex
