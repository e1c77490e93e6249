// SPDX-License-Identifier: MIT
// Tiles of 2004 and the point file.
#include <gtest/gtest.h>

#include "lidar/point_file.h"
#include "lidar/tile_2004.h"
#include "support/failure_of.h"
#include "support/lidar_files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TEST(Tile2004, RecordsOf100BytesArriveInOrder) {
  const TemporaryFolder folder;
  const std::vector<Test2004Record> written = {{1.5, 2.5, 3.5F, 4.5, 5.5, 6.5F},
                                               {-1, -2, -3, 2516431.25, 6857012.75, 180.125F}};
  ASSERT_EQ(written[0].Bytes().size(), 100U);
  const auto records = Read_Tile_2004(folder.Write("t.bin", Counted_Bytes(written)));
  ASSERT_EQ(records.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(records[i].FirstX, written[i].first_X);
    EXPECT_EQ(records[i].FirstY, written[i].first_Y);
    EXPECT_EQ(records[i].FirstZ, written[i].first_Z);
    EXPECT_EQ(records[i].LastX, written[i].last_X);
    EXPECT_EQ(records[i].LastY, written[i].last_Y);
    EXPECT_EQ(records[i].LastZ, written[i].last_Z);
  }
}

TEST(Tile2004, AShorterStrideReadsOverlappingRecords) {
  // 300 bytes after the count, each different by its position; the record at 4 + 25 i has LastZ in
  // its bytes 88 to 91.
  const TemporaryFolder folder;
  std::string bytes;
  Append_Value(bytes, std::int32_t{9});
  for (int k = 0; k < 300; ++k) bytes += static_cast<char>(k % 120 + 1);
  const auto records = Read_Tile_2004(folder.Write("t.bin", bytes), 25);
  ASSERT_EQ(records.size(), 9U);
  for (std::size_t i = 0; i < 9; ++i) {
    float Z = 0;
    std::memcpy(&Z, bytes.data() + 4 + 25 * i + 88, sizeof Z);
    EXPECT_EQ(records[i].LastZ, Z) << i;
  }
}

TEST(Tile2004, BytesPastTheEndAreZero) {
  // Three records 25 bytes apart in a file of 4 + 75 bytes: the first has its LastX at 72 to
  // 79, of which 72 to 74 lie in the file.
  const TemporaryFolder folder;
  const auto records =
      Read_Tile_2004(folder.Write("t.bin", Announced_Bytes(3, 72) + std::string(3, '\x11')), 25);
  ASSERT_EQ(records.size(), 3U);
  double X = 0;
  std::memcpy(&X, "\x11\x11\x11\0\0\0\0\0", sizeof X);
  EXPECT_EQ(records[0].LastX, X);
  EXPECT_EQ(records[0].LastY, 0);
  EXPECT_EQ(records[2].LastX, 0);
}

TEST(Tile2004, WrongTilesAreNamedWithBothSizes) {
  const TemporaryFolder folder;
  const auto failure = [&](const std::string& content, std::int64_t stride) {
    const FilePath file = folder.Write("t.bin", content);
    return Failure_Of([&] { Read_Tile_2004(file, stride); });
  };
  EXPECT_EQ(failure(Announced_Bytes(2, 199), 100),
            "Bad content: t.bin, 2 records of 100 bytes need 204 bytes, the file has 203");
  EXPECT_EQ(failure(Announced_Bytes(9, 200), 25),
            "Bad content: t.bin, 9 records of 25 bytes need 229 bytes, the file has 204");
  EXPECT_EQ(failure(Announced_Bytes(-1, 100), 100),
            "Bad content: t.bin, -1 records of 100 bytes are announced, the file has 104 bytes");
  EXPECT_TRUE(Read_Tile_2004(folder.Write("t.bin", "")).empty());
  EXPECT_EQ(Failure_Of([&] { Read_Tile_2004(folder.File("none.bin")); }),
            "File not found: none.bin");
}

TEST(PointFile, PointsOf21BytesArriveInOrder) {
  const TemporaryFolder folder;
  const std::vector<TestPoint> written = {{3, 1.5, 2.5, 3.5F}, {255, 2516431.25, -7, 180.125F}};
  ASSERT_EQ(written[0].Bytes().size(), 21U);
  const auto points = Read_Point_File(folder.Write("p.bin", Counted_Bytes(written)));
  ASSERT_EQ(points.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(points[i].EchoClass, written[i].echo_class);
    EXPECT_EQ(points[i].X, written[i].X);
    EXPECT_EQ(points[i].Y, written[i].Y);
    EXPECT_EQ(points[i].Z, written[i].Z);
  }
}

TEST(PointFile, WrongFilesAreNamedWithBothSizes) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("p.bin", Announced_Bytes(2, 41));
  EXPECT_EQ(Failure_Of([&] { Read_Point_File(file); }),
            "Bad content: p.bin, 2 records of 21 bytes need 46 bytes, the file has 45");
  EXPECT_EQ(Failure_Of([&] { Read_Point_File(folder.File("none.bin")); }),
            "File not found: none.bin");
}

}  // namespace
}  // namespace sylvomex
