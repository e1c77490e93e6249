// SPDX-License-Identifier: MIT
#include "commands/crowns/crown_intersection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "commands/lidar/lidar_block.h"
#include "crowns/crown_list.h"
#include "support/file_size_limit.h"

namespace sylvomex {
namespace {

constexpr double kX = LidarBlock::kX, kY = LidarBlock::kY;

struct ListBlock : LidarBlock {
  ListBlock() { folder.Make_Folder("c/data/exotics"); }

  void List(const std::string& rows) { folder.Write("c/data/exotics/Exotics.csv", rows); }
  std::string Output() { return folder.Read("c/data/exotics/Output.txt"); }
  std::string Run() {
    Crown_Intersection_For_LiDAR(w);
    return Output();
  }

  // Two echoes: 118 m at the axis in slot 4, 113 m one metre beside it in slot 3.
  static TestPulse Two_Echoes() {
    TestPulse pulse = Single_Echo({kX, kY, 118, 41, 801.5});
    pulse.echo_count = 2;
    pulse.slot[3] = {kX + 1, kY, 113, 7, 806.25};
    pulse.value = 12.345;
    pulse.sensor[0] = 2516000;
    pulse.sensor[1] = 6857000.5;
    pulse.code = -3;
    pulse.byte_a = 1;
    pulse.gain = 2;
    pulse.byte_b = 3;
    pulse.byte_c = 4;
    return pulse;
  }
};

// Top 120, base 100: the upper part reaches down to 112 m.
const std::string kRow = "2516450,6857050,120,100,9,4\n";
const std::string kRowStart = "2516450.00,6857050.00,120.00,100.00,9,4,";
const std::string kPulsePart = "2,12.35,2516000.00,6857000.50,1500.00,-3,1,2,3,4,0,0,7,41,";

TEST(CrownIntersection, TwoInsideEchoesGiveOneLineInSlotOrder) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List(kRow);
  std::string pulse_part = kPulsePart;
  // 12.345 lies below the tie as a double.
  pulse_part.replace(2, 5, Format(12.345, "0.00"));
  EXPECT_EQ(b.Run(), kRowStart + pulse_part +
                         "2,2516451.00,6857050.00,113.00,7,806.25,"
                         "2516450.00,6857050.00,118.00,41,801.50,\n");
}

TEST(CrownIntersection, ACrownOfWidthZeroSelectsNothing) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List("2516450,6857050,120,100,9,0\n2516450,6857050,120,100,9,-4\n");
  EXPECT_EQ(b.Run(), "");
}

TEST(CrownIntersection, AVeryWideCrownTakesTheWholeTile) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes(), Single_Echo({kX + 49, kY - 49, 119})});
  b.List("2516450,6857050,120,100,9,1e6\n");
  const std::string lines = b.Run();
  EXPECT_EQ(std::ranges::count(lines, '\n'), 2);
}

TEST(CrownIntersection, AnEchoAboveTheTopIsInsideAndOneAtTheLowerEndIsNot) {
  ListBlock b;
  b.Write_Tile("2006", {Single_Echo({kX, kY, 500}), Single_Echo({kX, kY, 112}),
                        Single_Echo({kX + 2, kY, 119})});
  b.List(kRow);
  const std::string lines = b.Run();
  EXPECT_EQ(std::ranges::count(lines, '\n'), 1);
  EXPECT_NE(lines.find(",500.00,"), std::string::npos);
}

TEST(CrownIntersection, TwoRowsOfOneTileReadItOnce) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List(kRow + kRow);
  // Gone before the second row: a second reading would find nothing and end the command.
  b.screen.on_service = [&b] {
    if (b.screen.servicings == 2) b.folder.Write("c/als2006/064_070.bin", "");
  };
  const std::string lines = b.Run();
  EXPECT_EQ(std::ranges::count(lines, '\n'), 2);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "2");
}

TEST(CrownIntersection, ATileWithoutPulsesEndsTheCommand) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List(kRow + "2516550,6857050,120,100,9,4\n" + kRow);
  const std::string lines = b.Run();
  EXPECT_EQ(std::ranges::count(lines, '\n'), 1);
  EXPECT_EQ(b.w.Form1.Label10.Caption, "2");
  EXPECT_EQ(b.folder.Read("c/als2006/065_070.bin"), "");
}

TEST(CrownIntersection, OnTileZeroTheFirstRowTakesTheTableAsItIs) {
  ListBlock b;
  const double X = 2510050, Y = 6850050;
  b.List("2510050,6850050,120,100,9,4\n");
  EXPECT_EQ(b.Run(), "");
  const std::string bytes = Counted_Bytes(std::vector<TestPulse>{Single_Echo({X, Y, 119})});
  Read_Pulse_Tile(b.folder.Write("c/other.bin", bytes), b.w.LidarPulses);
  const std::string lines = b.Run();
  EXPECT_EQ(std::ranges::count(lines, '\n'), 1);
  EXPECT_FALSE(b.folder.Has("c/als2006/000_000.bin"));
}

TEST(CrownIntersection, ATableThatAnotherCommandReplacedIsTheOneThatCounts) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List(kRow + kRow);
  const std::string bytes =
      Counted_Bytes(std::vector<TestPulse>{Single_Echo({kX, kY, 119}), Single_Echo({kX, kY, 117})});
  b.screen.on_service = [&] {
    if (b.screen.servicings == 2) {
      Read_Pulse_Tile(b.folder.Write("c/other.bin", bytes), b.w.LidarPulses);
    }
  };
  const std::string lines = b.Run();
  EXPECT_EQ(std::ranges::count(lines, '\n'), 3);
}

TEST(CrownIntersection, ARowWithMissingItemsIsNamedAndWholeLinesStay) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List(kRow + "2516450,6857050,120");
  const std::string failure = Failure_Of([&] { Crown_Intersection_For_LiDAR(b.w); });
  EXPECT_NE(failure.find("Exotics.csv, line 2"), std::string::npos) << failure;
  EXPECT_EQ(std::ranges::count(b.Output(), '\n'), 1);
  EXPECT_TRUE(b.Output().ends_with(",\n"));
}

TEST(CrownIntersection, TheOutputIsWrittenAnewInEachRun) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List(kRow);
  const std::string once = b.Run();
  EXPECT_EQ(b.Run(), once);
}

TEST(CrownIntersection, ASlotWithoutAnEchoIsTakenAsItStands) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  // Slots 1 and 2 hold 0, 0, 0: 7.3e6 m away and 120 m below the top, of 0.4 x 320 m.
  b.List("2516450,6857050,120,-200,9,2e7\n2516450,6857050,120,-200,9,1e6\n");
  const std::string lines = b.Run();
  EXPECT_NE(lines.find(",7,41,4,0.00,0.00,0.00,0,0.00,0.00,0.00,0.00,0,0.00,2516451.00,"),
            std::string::npos)
      << lines;
  EXPECT_NE(lines.find(",7,41,2,2516451.00,"), std::string::npos) << lines;
}

TEST(CrownIntersection, AFullDiskIsNamedAndLeavesWholeLines) {
  ListBlock b;
  b.Write_Tile("2006", {ListBlock::Two_Echoes()});
  b.List(kRow + kRow + kRow);
  const FileSizeLimit full(400);  // bytes, of three lines of some 180
  const std::string failure = Failure_Of([&] { Crown_Intersection_For_LiDAR(b.w); });
  EXPECT_TRUE(failure.starts_with("Disk full")) << failure;
  EXPECT_NE(failure.find("Output.txt"), std::string::npos) << failure;
  EXPECT_TRUE(b.Output().empty() || b.Output().ends_with(",\n"));
}

TEST(CrownIntersection, WithoutItsFolderItIsAFileError) {
  LidarBlock b;
  EXPECT_NE(Failure_Of([&] { Crown_Intersection_For_LiDAR(b.w); }), "no failure");
}

TEST(CrownIntersection, TheNeighbouringCommandIsDisabled) {
  LidarBlock b;
  Find_And_Match_In_Lidar(b.w);
  EXPECT_EQ(b.screen.messages, std::vector<std::string>{"Routine disabled"});
}

TEST(PulsePlaces, FindThePulsesOfTheWalkOverAll) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> place(-50, 50), height(100, 125);
  std::vector<TestPulse> pulses;
  for (int i = 0; i < 4000; ++i) {
    TestPulse pulse;
    for (int k = 4; k > i % 4; --k) {
      pulse.slot[k] = {kX + place(random), kY + place(random), height(random)};
    }
    pulses.push_back(pulse);
  }
  LidarBlock b;
  b.Write_Tile("2006", pulses);
  Read_Pulse_Tile(b.folder.File("c/als2006/064_070.bin"), b.w.LidarPulses);
  PulsePlaces places(b.w.LidarPulses);
  for (const double width : {0.0, 0.7, 4.0, 30.0, 1e6}) {
    const ListedCrown crown{kX + place(random), kY + place(random), 120, 90, 1, width};
    std::vector<std::int32_t> near, found, expected;
    places.Near(crown, near);
    const auto hits = [&](std::int32_t i) {
      return Slots_Inside(b.w.LidarPulses(i), crown).count > 0;
    };
    std::ranges::copy_if(near, std::back_inserter(found), hits);
    for (std::int32_t i = 1; i <= 4000; ++i) {
      if (hits(i)) expected.push_back(i);
    }
    EXPECT_EQ(found, expected) << width;
  }
}

}  // namespace
}  // namespace sylvomex
