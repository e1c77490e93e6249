// SPDX-License-Identifier: MIT
#include "products/sub_image.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

/// 1 m pixels on the plane at 0: column 100 + X, row 80 + Y; 200 x 160 pixels.
ImageRecord Image() {
  ImageRecord image;
  image.PrincipalDistance = 0.1;
  image.AffineA1 = image.AffineB2 = 10000;
  image.AffineA0 = 100;
  image.AffineB0 = 80;
  image.FullWidth = 200;
  image.FullHeight = 160;
  image.SubWidth = 200;
  image.SubHeight = 160;
  image.Z0 = 1000;
  return image;
}

RawRectangle Around(const ImageRecord& image, const GroundBuffer& buffer) {
  return Rectangle_Around(image, Make_Camera(image), buffer);
}

void Expect_Rectangle(const RawRectangle& r, double col, double row, double columns, double rows) {
  EXPECT_EQ(r.first_col, col);
  EXPECT_EQ(r.first_row, row);
  EXPECT_EQ(r.columns, columns);
  EXPECT_EQ(r.rows, rows);
}

TEST(SubImage, SpansTheCornersWithBothEnds) {
  // Columns 105 to 115, rows 98 to 102: raw rows 57 to 61.
  Expect_Rectangle(Around(Image(), {{10, 20, 0}, 5, 2}), 105, 57, 11, 5);
}

TEST(SubImage, ATurnedImageSpansItsTurnedCorners) {
  ImageRecord image = Image();
  image.Kappa = 3.14159265358979 / 2;  // x is Y, y is -X
  Expect_Rectangle(Around(image, {{10, 20, 0}, 5, 2}), 118, 159 - 75, 5, 11);
}

TEST(SubImage, CountsFromTheRawFilesOwnOrigin) {
  ImageRecord image = Image();
  image.SubColOrigin = 100;
  image.SubRowOrigin = 50;
  Expect_Rectangle(Around(image, {{10, 20, 0}, 5, 2}), 5, 7, 11, 5);
  // Columns 95 to 105 begin before the raw file.
  Expect_Rectangle(Around(image, {{0, 20, 0}, 5, 2}), 0, 7, 6, 5);
}

TEST(SubImage, LeavesOutWhatLiesBeforeTheImageOnly) {
  Expect_Rectangle(Around(Image(), {{-100, 80, 0}, 3, 3}), 0, 0, 4, 3);
  Expect_Rectangle(Around(Image(), {{99, -80, 0}, 3, 3}), 196, 156, 7, 4);
  Expect_Rectangle(Around(Image(), {{-500, 0, 0}, 3, 3}), 0, 76, 1, 7);
}

TEST(SubImage, ARecordOfACutOutKeepsEveryOtherField) {
  const ImageRecord image = Image();
  const ImageRecord cut = Cut_Out_Record(image, {10, 20, 30, 40}, "c:\\data\\B4_1.raw");
  EXPECT_EQ(cut.RawFileName.Trimmed(), "c:\\data\\B4_1.raw");
  EXPECT_EQ(cut.SubColOrigin, 10);
  EXPECT_EQ(cut.SubRowOrigin, 20);
  EXPECT_EQ(cut.SubWidth, 30);
  EXPECT_EQ(cut.SubHeight, 40);
  EXPECT_EQ(cut.FullWidth, 200);
  EXPECT_EQ(cut.AffineA0, 100);
}

TEST(GroundBuffers, AreReadLineByLine) {
  const TemporaryFolder folder;
  const auto buffers = Read_Ground_Buffers(
      folder.Write("a.txt", "1,2,3,4,5,\"c:\\my data\\x.raw\"\r\n\r\n6 7 8 9 10 plain\r\n"));
  ASSERT_EQ(buffers.size(), 2u);
  EXPECT_EQ(buffers[0].centre.Z, 3);
  EXPECT_EQ(buffers[0].east_west, 4);
  EXPECT_EQ(buffers[1].north_south, 10);
}

TEST(GroundBuffers, AMissingNameIsAMissingItem) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("a.txt", "1,2,3,4,5,x\n1,2,3,4,5\n");
  EXPECT_NE(Failure_Of([&] { Read_Ground_Buffers(file); }).find("a.txt, line 2, item 6"),
            std::string::npos);
}

}  // namespace
}  // namespace sylvomex
