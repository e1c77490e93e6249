// SPDX-License-Identifier: MIT
#include "commands/lidar/density_map.h"

#include <gtest/gtest.h>

#include "commands/lidar/lidar_block.h"

namespace sylvomex {
namespace {

struct DensityMap : LidarBlock, testing::Test {
  // Only the count of a tile is read.
  void Write_Count(const std::string& year, const std::string& tile, std::int32_t count) {
    folder.Write("c/als" + year + "/" + tile, Announced_Bytes(count, 0));
  }
  // Columns and rows of the map count from 1.
  Colour Pixel(int col, int row) {
    const std::string map = folder.Read("c/temp/LiDMap.raw");
    const auto at = static_cast<std::size_t>(3 * ((row - 1) * 200 + col - 1));
    const auto byte = [&](std::size_t k) { return static_cast<std::uint8_t>(map.at(at + k)); };
    return {byte(0), byte(1), byte(2)};
  }
};

TEST_F(DensityMap, HasThreeBytesFor200By400Pixels) {
  Make_Lidar_Intensity_Map(w);
  EXPECT_EQ(folder.Read("c/temp/LiDMap.raw"), std::string(200 * 400 * 3, '\0'));
}

TEST_F(DensityMap, TheFirstTileIsPixelOneOneAndTheLastPixel100By150) {
  Write_Count("2006", "000_000.bin", 100'000);
  Write_Count("2006", "001_000.bin", 100'000);
  Write_Count("2006", "000_001.bin", 100'000);
  Write_Count("2006", "099_149.bin", 100'000);
  Write_Count("2006", "100_000.bin", 100'000);  // outside the map
  Make_Lidar_Intensity_Map(w);
  const Colour half = Of_Row(32);  // 10 of 20: 127.5 -> 128
  EXPECT_EQ(Pixel(1, 1), half);
  EXPECT_EQ(Pixel(2, 1), half);
  EXPECT_EQ(Pixel(1, 2), half);
  EXPECT_EQ(Pixel(100, 150), half);
  EXPECT_EQ(Pixel(101, 1), Colour{});
  EXPECT_EQ(Pixel(2, 2), Colour{});  // no tile: black
}

TEST_F(DensityMap, AddsBothCampaignsAndKeepsThePreviousCountWithoutATile) {
  Write_Count("2006", "000_000.bin", 40'000);
  Write_Count("2007", "000_000.bin", 60'000);
  Write_Count("2007", "000_001.bin", 10'000);  // plus 40,000 remaining from 2006
  Write_Count("2006", "001_000.bin", 90'000);  // plus 10,000 remaining from 2007
  Make_Lidar_Intensity_Map(w);
  EXPECT_EQ(Pixel(1, 1), Of_Row(32));  // 10
  EXPECT_EQ(Pixel(1, 2), Of_Row(16));  // 5: 63.75 -> 64
  EXPECT_EQ(Pixel(2, 1), Of_Row(32));  // 10
}

TEST_F(DensityMap, DensitiesBeyondTheScaleHaveItsEndColours) {
  Write_Count("2006", "000_000.bin", 200'001);
  Write_Count("2006", "000_001.bin", -5);
  Write_Count("2006", "000_002.bin", 0);
  folder.Write("c/als2006/000_003.bin", "");
  Make_Lidar_Intensity_Map(w);
  EXPECT_EQ(Pixel(1, 1), Of_Row(63));
  EXPECT_EQ(Pixel(1, 2), Of_Row(1));
  EXPECT_EQ(Pixel(1, 3), Of_Row(1));
  EXPECT_EQ(Pixel(1, 4), Of_Row(1));
}

TEST_F(DensityMap, ShowsTheNamesFoundAndServicesEventsForEveryTile) {
  std::vector<std::string> labels;
  screen.on_service = [&] { labels.push_back(w.Form1.Label10.Caption); };
  Write_Count("2006", "000_000.bin", 1);
  Write_Count("2007", "000_000.BIN", 1);
  Write_Count("2007", "000_001.bin", 1);
  Make_Lidar_Intensity_Map(w);
  ASSERT_EQ(labels.size(), 15'000U);
  EXPECT_EQ(labels[0], "000_000.bin 000_000.BIN");
  EXPECT_EQ(labels[1], " 000_001.bin");
  EXPECT_EQ(labels[2], " ");
}

TEST_F(DensityMap, AMissingHeaderIsNamed) {
  std::filesystem::remove(folder.Path() / "c/data/als2007_path.hdr");
  EXPECT_EQ(Failure_Of([&] { Make_Lidar_Intensity_Map(w); }),
            "File not found: c:\\data\\als2007_path.hdr");
}

TEST_F(DensityMap, LeavesThePulseTableUnchanged) {
  Write_Count("2006", "000_000.bin", 1);
  Make_Lidar_Intensity_Map(w);
  EXPECT_EQ(w.LidarPulses.Count(), 0);
}

}  // namespace
}  // namespace sylvomex
