// SPDX-License-Identifier: MIT
#include "imageblock/bitmap_file.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "expect_failure.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes File_Bytes(const FilePath& file) {
  const std::string content = Read_Whole_File(file);
  return {content.begin(), content.end()};
}

std::uint32_t Little_Endian(const Bytes& bytes, std::size_t at, int count) {
  std::uint32_t value = 0;
  for (int k = count - 1; k >= 0; --k) value = value << 8 | bytes[at + static_cast<std::size_t>(k)];
  return value;
}

PaneBitmap Counting_Bitmap(int width, int height) {
  PaneBitmap bitmap{width, height, Bytes(static_cast<std::size_t>(3 * width * height))};
  std::iota(bitmap.bgr.begin(), bitmap.bgr.end(), std::uint8_t{1});
  return bitmap;
}

void Put32(Bytes& bytes, std::size_t at, std::uint32_t value) {
  for (std::size_t k = 0; k < 4; ++k) bytes[at + k] = static_cast<std::uint8_t>(value >> (8 * k));
}

class BitmapFile : public testing::Test {
 protected:
  FilePath Path() const { return folder_.File("pic0.bmp"); }

  PaneBitmap Load(const Bytes& content) const {
    Write_Whole_File(Path(), content);
    return Load_Bitmap(Path());
  }

  /// A well-formed 4 x 2 file of 24 bits as the writer makes it.
  Bytes Good_File() const {
    Write_Pane_Bitmap(Path(), Counting_Bitmap(4, 2));
    return File_Bytes(Path());
  }

  std::string Expect_Bad(const Bytes& content) const {
    const std::string text = Expect_Failure(Failure::BadContent, [&] { Load(content); });
    EXPECT_TRUE(Contains(text, "pic0.bmp")) << text;
    return text;
  }

 private:
  TemporaryFolder folder_;
};

void Expect_Pane_Header(const Bytes& bytes, std::uint32_t size, std::uint32_t width,
                        std::uint32_t height) {
  ASSERT_GE(bytes.size(), 54U);
  EXPECT_EQ(Little_Endian(bytes, 0, 2), 19778U);
  EXPECT_EQ(Little_Endian(bytes, 2, 4), size);
  EXPECT_EQ(Little_Endian(bytes, 6, 4), 0U);
  EXPECT_EQ(Little_Endian(bytes, 10, 4), 54U);
  EXPECT_EQ(Little_Endian(bytes, 14, 4), 40U);
  EXPECT_EQ(Little_Endian(bytes, 18, 4), width);
  EXPECT_EQ(Little_Endian(bytes, 22, 4), 0U - height);
  EXPECT_EQ(Little_Endian(bytes, 26, 2), 1U);
  EXPECT_EQ(Little_Endian(bytes, 28, 2), 24U);
  for (std::size_t at = 30; at < 54; ++at) EXPECT_EQ(bytes[at], 0) << at;
}

TEST_F(BitmapFile, PaneBitmapCountsOnlyItsPixelBytes) {
  Write_Pane_Bitmap(Path(), Counting_Bitmap(4, 2));
  const Bytes bytes = File_Bytes(Path());
  Expect_Pane_Header(bytes, 24, 4, 2);
  ASSERT_EQ(bytes.size(), 78U);
  for (std::size_t at = 0; at < 24; ++at) EXPECT_EQ(bytes[54 + at], at + 1);
}

TEST_F(BitmapFile, PaneRowPadIsCountedInPixelsAndBlack) {
  // Widths 5, 6, 7: 15, 18, 21 bytes leave 3, 2, 1, so the pad is 1, 2, 3 pixels.
  for (const std::uint32_t width : {5U, 6U, 7U}) {
    const std::uint32_t pad = width - 4;
    Write_Pane_Bitmap(Path(), Counting_Bitmap(static_cast<int>(width), 2));
    const Bytes bytes = File_Bytes(Path());
    Expect_Pane_Header(bytes, 3 * (width + pad) * 2, width, 2);
    ASSERT_EQ(bytes.size(), 54 + 3 * (width + pad) * 2);
    EXPECT_EQ(bytes[54 + 3 * width - 1], 3 * width);
    for (std::size_t at = 0; at < 3 * pad; ++at) EXPECT_EQ(bytes[54 + 3 * width + at], 0);
    EXPECT_EQ(bytes[54 + 3 * (width + pad)], 3 * width + 1);
  }
}

TEST_F(BitmapFile, PaneBitmapIsRewrittenWithoutAStaleTail) {
  Write_Pane_Bitmap(Path(), Counting_Bitmap(8, 8));
  Write_Pane_Bitmap(Path(), Counting_Bitmap(4, 2));
  EXPECT_EQ(File_Bytes(Path()).size(), 78U);
}

TEST_F(BitmapFile, PaneBitmapReadsBackByteForByte) {
  const PaneBitmap written = Counting_Bitmap(40, 24);
  Write_Pane_Bitmap(Path(), written);
  const PaneBitmap read = Load_Bitmap(Path());
  EXPECT_EQ(read.width, 40);
  EXPECT_EQ(read.height, 24);
  EXPECT_EQ(read.bgr, written.bgr);
}

TEST_F(BitmapFile, WriterRejectsASizeThatDoesNotMatchTheBytes) {
  for (PaneBitmap bitmap : {PaneBitmap{4, 2, Bytes(23)}, PaneBitmap{-4, -2, Bytes(24)},
                            PaneBitmap{0, 7, Bytes(3)}, PaneBitmap{4, 3, Bytes(24)}}) {
    Expect_Failure(Failure::SubscriptOutOfRange, [&] { Write_Pane_Bitmap(Path(), bitmap); });
  }
  Expect_Failure(Failure::SubscriptOutOfRange, [&] { Write_Grey_Bitmap(Path(), 4, 4, Bytes(15)); });
  EXPECT_FALSE(File_Exists(Path()));
}

TEST_F(BitmapFile, RewrittenHeaderChangesNoPixel) {
  Bytes expected = Good_File();
  Rewrite_Bitmap_Header(Path(), 8, 1);
  const Bytes bytes = File_Bytes(Path());
  Expect_Pane_Header(bytes, 24, 8, 1);
  EXPECT_EQ(Bytes(bytes.begin() + 54, bytes.end()), Bytes(expected.begin() + 54, expected.end()));
}

TEST_F(BitmapFile, RewritingTheSameHeaderChangesNothing) {
  const Bytes before = Good_File();
  Rewrite_Bitmap_Header(Path(), 4, 2);
  EXPECT_EQ(File_Bytes(Path()), before);
}

TEST_F(BitmapFile, GreyBitmapHasItsPaletteFillerAndRowsFromTheBottom) {
  const Bytes pixels{10, 11, 12, 13, 14, 20, 21, 22, 23, 24};
  Write_Grey_Bitmap(Path(), 5, 2, pixels);
  const Bytes bytes = File_Bytes(Path());
  ASSERT_EQ(bytes.size(), 1082U + 16);
  EXPECT_EQ(Little_Endian(bytes, 0, 2), 19778U);
  EXPECT_EQ(Little_Endian(bytes, 2, 4), 10U);
  EXPECT_EQ(Little_Endian(bytes, 10, 4), 1082U);
  EXPECT_EQ(Little_Endian(bytes, 14, 4), 40U);
  EXPECT_EQ(Little_Endian(bytes, 18, 4), 5U);
  EXPECT_EQ(Little_Endian(bytes, 22, 4), 2U);
  EXPECT_EQ(Little_Endian(bytes, 26, 2), 1U);
  EXPECT_EQ(Little_Endian(bytes, 28, 2), 8U);
  for (std::size_t at = 30; at < 46; ++at) EXPECT_EQ(bytes[at], 0) << at;
  EXPECT_EQ(Little_Endian(bytes, 46, 4), 256U);
  EXPECT_EQ(Little_Endian(bytes, 50, 4), 256U);
  for (std::uint32_t entry = 0; entry < 256; ++entry) {
    EXPECT_EQ(Little_Endian(bytes, 54 + 4 * entry, 4), entry * 0x010101U);
  }
  EXPECT_EQ(Bytes(bytes.begin() + 1078, bytes.end()),
            (Bytes{0, 0, 0, 0, 20, 21, 22, 23, 24, 0, 0, 0, 10, 11, 12, 13, 14, 0, 0, 0}));
}

TEST_F(BitmapFile, GreyBitmapReadsBackTheRightWayUp) {
  Write_Grey_Bitmap(Path(), 3, 2, Bytes{10, 11, 12, 20, 21, 22});
  const PaneBitmap read = Load_Bitmap(Path());
  EXPECT_EQ(read.width, 3);
  EXPECT_EQ(read.height, 2);
  EXPECT_EQ(read.bgr,
            (Bytes{10, 10, 10, 11, 11, 11, 12, 12, 12, 20, 20, 20, 21, 21, 21, 22, 22, 22}));
}

TEST_F(BitmapFile, PositiveHeightIsReadFromTheBottom) {
  Bytes file = Good_File();
  Put32(file, 22, 2);
  const PaneBitmap read = Load(file);
  EXPECT_EQ(read.height, 2);
  EXPECT_EQ(read.bgr[0], 13);
  EXPECT_EQ(read.bgr[12], 1);
}

TEST_F(BitmapFile, OddWidthIsReadByRowsPaddedToFourBytes) {
  Bytes file = Good_File();
  Put32(file, 18, 3);  // 9 of the 12 bytes of each row
  const PaneBitmap read = Load(file);
  EXPECT_EQ(read.bgr, (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 13, 14, 15, 16, 17, 18, 19, 20, 21}));
}

TEST_F(BitmapFile, SizeFieldIsIgnored) {
  Bytes file = Good_File();
  Put32(file, 2, 0xFFFFFFFF);
  EXPECT_EQ(Load(file).bgr, Counting_Bitmap(4, 2).bgr);
}

TEST_F(BitmapFile, PaletteColoursAreLookedUpAndMissingEntriesAreBlack) {
  Bytes file(54 + 8 + 4);
  file[0] = 'B';
  file[1] = 'M';
  Put32(file, 10, 62);
  Put32(file, 14, 40);
  Put32(file, 18, 4);
  Put32(file, 22, 1);
  file[28] = 8;
  Put32(file, 46, 2);  // two colours
  Put32(file, 54, 0x00030201);
  Put32(file, 58, 0x00060504);
  Put32(file, 62, 0x02000100);  // entries 0, 1, 0, 2
  EXPECT_EQ(Load(file).bgr, (Bytes{1, 2, 3, 4, 5, 6, 1, 2, 3, 0, 0, 0}));
}

TEST_F(BitmapFile, MissingFileIsFileNotFound) {
  const std::string text = Expect_Failure(Failure::FileNotFound, [&] { Load_Bitmap(Path()); });
  EXPECT_TRUE(Contains(text, "pic0.bmp")) << text;
}

TEST_F(BitmapFile, AnythingButABitmapIsRejected) {
  Expect_Bad({});
  Expect_Bad({'B', 'M'});
  Expect_Bad(Bytes(200, 'x'));
}

TEST_F(BitmapFile, SizesOfZeroAreRejected) {
  for (const std::size_t field : {std::size_t{18}, std::size_t{22}}) {
    Bytes file = Good_File();
    Put32(file, field, 0);
    Expect_Bad(file);
  }
}

TEST_F(BitmapFile, SizesBeyondTheFileAreRejected) {
  for (const std::size_t field : {std::size_t{18}, std::size_t{22}}) {
    for (const std::uint32_t value : {5U, 1000000000U, 0x7FFFFFFFU, 0x80000000U}) {
      Bytes file = Good_File();
      Put32(file, 18, 4);
      Put32(file, field, value);
      Expect_Bad(file);
    }
  }
  Bytes both = Good_File();
  Put32(both, 18, 1000000000U);
  Put32(both, 22, 1000000000U);
  Expect_Bad(both);
}

TEST_F(BitmapFile, PixelOffsetOutsideTheFileOrInsideTheHeaderIsRejected) {
  for (const std::uint32_t offset : {0U, 53U, 55U, 79U, 0xFFFFFFFFU}) {
    Bytes file = Good_File();
    Put32(file, 10, offset);
    Expect_Bad(file);
  }
}

TEST_F(BitmapFile, OtherDepthsCompressionsAndHeadersAreRejected) {
  Bytes depth = Good_File();
  depth[28] = 16;
  EXPECT_TRUE(Contains(Expect_Bad(depth), "16 bits"));
  Bytes compressed = Good_File();
  compressed[30] = 1;
  Expect_Bad(compressed);
  for (const std::uint32_t size : {12U, 0U, 0xFFFFFFFFU}) {
    Bytes info = Good_File();
    Put32(info, 14, size);
    Expect_Bad(info);
  }
}

TEST_F(BitmapFile, EveryPrefixOfAGoodFileIsRejected) {
  const Bytes file = Good_File();
  for (std::size_t size = 0; size < file.size(); ++size) {
    Expect_Bad(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)));
  }
}

TEST(PlainBitmap, HasItsRowsFromTheBottomPaddedToFourBytes) {
  TemporaryFolder folder;
  const PaneBitmap bitmap{3, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19}};
  Replace_Bitmap(folder.File("a.bmp"), bitmap);
  const std::string bytes = folder.Read("a.bmp");
  ASSERT_EQ(bytes.size(), 54u + 2 * 12);
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  EXPECT_EQ(bytes[2], 54 + 24);  // the size of the file
  EXPECT_EQ(bytes[18], 3);
  EXPECT_EQ(bytes[22], 2);
  EXPECT_EQ(bytes.substr(54, 12), std::string("\x0b\x0c\x0d\x0e\x0f\x10\x11\x12\x13\0\0\0", 12));
  EXPECT_EQ(bytes.substr(66, 9), "\x01\x02\x03\x04\x05\x06\x07\x08\x09");
  EXPECT_EQ(Load_Bitmap(folder.File("a.bmp")).bgr, bitmap.bgr);
}

TEST(PlainBitmap, ThatCannotBeWrittenLeavesTheOlderFile) {
  TemporaryFolder folder;
  folder.Write("a.bmp", "old");
  EXPECT_THROW(Replace_Bitmap(folder.File("a.bmp"), {3, 2, {1, 2, 3}}), RunTimeError);
  EXPECT_EQ(folder.Read("a.bmp"), "old");
}

}  // namespace
}  // namespace sylvomex
