// SPDX-License-Identifier: MIT
#include "desktop/cursor_file.h"

#include <gtest/gtest.h>

#include <QPixmap>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

void Append16(QByteArray& bytes, int value) {
  bytes += static_cast<char>(value & 255);
  bytes += static_cast<char>(value >> 8 & 255);
}

void Append32(QByteArray& bytes, int value) {
  Append16(bytes, value & 0xffff);
  Append16(bytes, value >> 16 & 0xffff);
}

/// A cursor of 2 by 2 pixels, one bit each; hot spot at (1, 0). Palette: black, white. From
/// the top: opaque black, opaque white; clear, inverting.
QByteArray Small_Cursor() {
  QByteArray bytes;
  for (const int value : {0, 2, 1}) Append16(bytes, value);
  bytes += QByteArray("\x02\x02\x02\x00", 4);
  Append16(bytes, 1);  // hot spot
  Append16(bytes, 0);
  Append32(bytes, 40 + 8 + 16);
  Append32(bytes, 22);  // offset of the bitmap
  Append32(bytes, 40);
  Append32(bytes, 2);
  Append32(bytes, 4);  // colour rows and mask rows
  Append16(bytes, 1);
  Append16(bytes, 1);  // bits a pixel
  for (int k = 0; k < 6; ++k) Append32(bytes, 0);
  bytes += QByteArray("\x00\x00\x00\x00\xff\xff\xff\x00", 8);
  bytes += QByteArray("\x40\x00\x00\x00\x40\x00\x00\x00", 8);  // colours, bottom row first
  bytes += QByteArray("\xc0\x00\x00\x00\x00\x00\x00\x00", 8);  // mask, bottom row first
  return bytes;
}

TEST(Cursor, PixelsMaskAndHotSpotAreRead) {
  const auto cursor = Parse_Cursor(Small_Cursor());
  ASSERT_TRUE(cursor.has_value());
  EXPECT_EQ(cursor->hot_spot, QPoint(1, 0));
  ASSERT_EQ(cursor->image.size(), QSize(2, 2));
  EXPECT_EQ(cursor->image.pixel(0, 0), qRgba(0, 0, 0, 255));
  EXPECT_EQ(cursor->image.pixel(1, 0), qRgba(255, 255, 255, 255));
  EXPECT_EQ(qAlpha(cursor->image.pixel(0, 1)), 0);
  EXPECT_EQ(cursor->image.pixel(1, 1), qRgba(255, 255, 255, 255));
}

TEST(Cursor, TruncatedFileIsRejectedWhereverItEnds) {
  const QByteArray whole = Small_Cursor();
  for (qsizetype length = 0; length < whole.size(); ++length) {
    EXPECT_FALSE(Parse_Cursor(whole.left(length)).has_value()) << length;
  }
}

TEST(Cursor, EveryChangedByteIsReadOrRejected) {
  const QByteArray whole = Small_Cursor();
  for (qsizetype at = 0; at < whole.size(); ++at) {
    QByteArray changed = whole;
    changed[at] = static_cast<char>(~changed[at]);
    const auto cursor = Parse_Cursor(changed);
    if (cursor) {
      EXPECT_LE(cursor->image.width(), 256);
    }
  }
}

TEST(Cursor, IconIsNotACursor) {
  QByteArray icon = Small_Cursor();
  icon[2] = 1;
  EXPECT_FALSE(Parse_Cursor(icon).has_value());
}

TEST(CursorFromFile, IsTheFilesPicture) {
  TemporaryFolder folder;
  const QByteArray bytes = Small_Cursor();
  folder.Write("c/data/Cross04.cur", std::string(bytes.constData(), bytes.size()));
  const DriveMap drives = folder.Drives();
  CursorFile file(drives, "c:\\data\\cross04.CUR");
  EXPECT_EQ(file.Cursor().hotSpot(), QPoint(1, 0));
  EXPECT_EQ(file.Cursor().pixmap().size(), QSize(2, 2));
}

TEST(CursorFromFile, MissingOrBrokenFileGivesTheCross) {
  TemporaryFolder folder;
  folder.Write("c/data/broken.cur", "no cursor");
  const DriveMap drives = folder.Drives();
  EXPECT_EQ(CursorFile(drives, "c:\\data\\none.cur").Cursor().shape(), Qt::CrossCursor);
  EXPECT_EQ(CursorFile(drives, "c:\\data\\broken.cur").Cursor().shape(), Qt::CrossCursor);
}

}  // namespace
}  // namespace sylvomex
