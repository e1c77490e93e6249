// SPDX-License-Identifier: MIT
#include "commands/lidar/pulse_listing.h"

#include <gtest/gtest.h>

#include "commands/lidar/lidar_block.h"

namespace sylvomex {
namespace {

constexpr const char* kListing = "d/als_2516400_2517500_6856700_6858100_ALS_2007.txt";

TestPulse Pulse(std::uint8_t echo_count, double X) {
  TestPulse pulse;
  pulse.echo_count = echo_count;
  for (int k = 1; k <= 4; ++k) {
    if (k > 4 - echo_count) pulse.slot[k] = {X + k, 6857050, 110, 45, 780};
  }
  pulse.code = 3;
  return pulse;
}

struct PulseListing : LidarBlock, testing::Test {
  PulseListing() { Load_Flat_Ground(); }
  void Write_Tile_At(const std::string& name, const std::vector<TestPulse>& pulses) {
    folder.Write("c/als2007/" + name, Counted_Bytes(pulses));
  }
};

TEST_F(PulseListing, RunsThroughTheBlockNorthwardThenEastward) {
  std::vector<std::string> labels;
  screen.on_service = [&] { labels.push_back(w.Form1.Label10.Caption); };
  Write_Tile_At("064_067.bin", {Pulse(1, 2516401)});
  Write_Tile_At("064_081.bin", {Pulse(1, 2516402)});
  Write_Tile_At("075_067.bin", {Pulse(1, 2516403)});
  Write_Tile_At("075_081.bin", {Pulse(1, 2516404)});
  // Outside the block:
  for (const char* name : {"063_070.bin", "076_070.bin", "070_066.bin", "070_082.bin"}) {
    Write_Tile_At(name, {Pulse(1, 2516409)});
  }
  Print_ALS_in_ASCII(w);
  EXPECT_EQ(folder.Read(kListing),
            "2516405.00 6857050.00 110.00 10.00 045 0 3 1 \n"
            "2516406.00 6857050.00 110.00 10.00 045 0 3 1 \n"
            "2516407.00 6857050.00 110.00 10.00 045 0 3 1 \n"
            "2516408.00 6857050.00 110.00 10.00 045 0 3 1 \n");
  EXPECT_EQ(labels,
            (std::vector<std::string>{"c:\\als2007\\064_067.bin", "c:\\als2007\\064_081.bin",
                                      "c:\\als2007\\075_067.bin", "c:\\als2007\\075_081.bin"}));
  EXPECT_FALSE(folder.Has("c/als2007/065_070.bin"));
}

TEST_F(PulseListing, APulseOfThreeEchoesPrintsTwoLinesAndEndsIt) {
  Write_Tile_At("064_070.bin", {Pulse(3, 2516401), Pulse(1, 2516401)});
  Write_Tile_At("064_071.bin", {Pulse(1, 2516401)});
  Print_ALS_in_ASCII(w);
  EXPECT_EQ(folder.Read(kListing),
            "2516405.00 6857050.00 110.00 10.00 045 1 3 1 \n"
            "2516404.00 6857050.00 110.00 10.00 045 2 3 1 \n");
  EXPECT_EQ(screen.servicings, 1);
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(PulseListing, ImplausibleEchoesAreMessagesAndItGoesOn) {
  TestPulse twin = Pulse(2, 2516401);
  twin.slot[3].X = twin.slot[4].X;
  TestPulse empty = Pulse(1, 0);  // slot 4 at X = 4
  Write_Tile_At("064_070.bin", {twin, empty, Pulse(1, 2516401)});
  Print_ALS_in_ASCII(w);
  EXPECT_EQ(screen.messages, (std::vector<std::string>{"!", "!"}));
  const std::string text = folder.Read(kListing);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
}

TEST_F(PulseListing, IsRewrittenEachTime) {
  folder.Write(kListing, "old lines\n");
  Print_ALS_in_ASCII(w);
  EXPECT_EQ(folder.Read(kListing), "");
}

TEST_F(PulseListing, ATileOfNoPulsesHasNoLines) {
  Write_Tile_At("064_070.bin", {Pulse(1, 2516401)});
  Write_Tile_At("064_071.bin", {});
  Print_ALS_in_ASCII(w);
  EXPECT_EQ(folder.Read(kListing), "2516405.00 6857050.00 110.00 10.00 045 0 3 1 \n");
  EXPECT_EQ(w.LidarPulses.Count(), 1);
}

TEST_F(PulseListing, AnInvalidTileEndsItAndKeepsTheLinesBefore) {
  Write_Tile_At("064_070.bin", {Pulse(1, 2516401)});
  folder.Write("c/als2007/064_071.bin", Announced_Bytes(1, 100));
  EXPECT_EQ(Failure_Of([&] { Print_ALS_in_ASCII(w); }),
            "Bad content: c:\\als2007\\064_071.bin, 1 records of 207 bytes need 211 bytes, the "
            "file has 104");
  EXPECT_EQ(folder.Read(kListing), "2516405.00 6857050.00 110.00 10.00 045 0 3 1 \n");
}

TEST_F(PulseListing, LongTilesAreWrittenCompletely) {
  const std::vector<TestPulse> pulses(25'000, Pulse(4, 2516401));
  Write_Tile_At("064_070.bin", pulses);
  Print_ALS_in_ASCII(w);
  const std::string line = "2516405.00 6857050.00 110.00 10.00 045 1 3 1 \n";
  EXPECT_EQ(folder.Read(kListing).size(), 4 * pulses.size() * line.size());
}

}  // namespace
}  // namespace sylvomex
