// SPDX-License-Identifier: MIT
#include "lidar/tile_grid.h"

#include <gtest/gtest.h>

#include "lidar/path_header.h"
#include "support/failure_of.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TEST(TileName, Column64Row70) {
  EXPECT_EQ(Tile_Name("c:\\als\\", Campaign::Als2007, 2516431.2, 6857012.9),
            "c:\\als\\064_070.bin");
  EXPECT_EQ(Tile_Name("c:\\als\\", Campaign::Als2006, 2516431.2, 6857012.9),
            "c:\\als\\064_070.bin");
}

TEST(TileName, TheCampaignOf2004HasItsOwnOrigin) {
  EXPECT_EQ(Tile_Name("", Campaign::Als2004, 2516431.2, 6857012.9), "024_020.bin");
}

TEST(TileName, AnIndexOfFourDigitsIsTruncatedToThree) {
  EXPECT_EQ(Tile_Name("", Campaign::Als2006, 2510000 + 123400, 6850000 + 987650), "123_987.bin");
}

TEST(TileName, ABorderBelongsToTheTileNorthAndEast) {
  EXPECT_EQ(Tile_Name("", Campaign::Als2007, 2516400, 6857000), "064_070.bin");
  EXPECT_EQ(Tile_Name("", Campaign::Als2007, 2516399.9999, 6856999.9999), "063_069.bin");
}

TEST(TileName, IndicesBelowZeroKeepTheirSignInTheThreeCharacters) {
  // -1 is written "-001", -25 "-025".
  EXPECT_EQ(Tile_Name("", Campaign::Als2006, 2509999, 6847550), "-00_-02.bin");
}

TEST(TileName, ThePrefixIsUsedUnchanged) {
  EXPECT_EQ(Tile_Name("d:\\strips\\t", Campaign::Als2006, 2510000, 6850000),
            "d:\\strips\\t000_000.bin");
}

TEST(TileIndex, RoundsTowardMinusInfinity) {
  EXPECT_EQ(Tile_Index(Campaign::Als2004, 2513999.5, 6855199.5), (TileIndex{-1, 1}));
}

TEST(PathHeader, IsOneItemPlainOrQuoted) {
  const TemporaryFolder folder;
  EXPECT_EQ(Read_Path_Header(folder.Write("a.hdr", "c:\\als 2006\\\nmore\n")), "c:\\als 2006\\");
  EXPECT_EQ(Read_Path_Header(folder.Write("a.hdr", "\"c:\\als, old\\\"\r\n")), "c:\\als, old\\");
  EXPECT_EQ(Read_Path_Header(folder.Write("a.hdr", "c:\\als\\,d:\\als\\")), "c:\\als\\");
}

TEST(PathHeader, AMissingOneIsNamed) {
  const TemporaryFolder folder;
  EXPECT_EQ(Failure_Of([&] { Read_Path_Header(folder.File("als2006_path.hdr")); }),
            "File not found: als2006_path.hdr");
  const FilePath empty = folder.Write("empty.hdr", "");
  EXPECT_EQ(Failure_Of([&] { Read_Path_Header(empty); }).substr(0, 33),
            "Input past end of file: empty.hdr");
}

}  // namespace
}  // namespace sylvomex
