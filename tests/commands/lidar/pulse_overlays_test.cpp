// SPDX-License-Identifier: MIT
#include "commands/lidar/pulse_overlays.h"

#include <gtest/gtest.h>

#include "commands/lidar/lidar_block.h"
#include "platform/files.h"

namespace sylvomex {
namespace {

constexpr double kX = LidarBlock::kX, kY = LidarBlock::kY;

// The intensity counts 1.0225 times in 2007, once in 2006.
TestPulse Echo_2007(double X, double Y, double Z, std::int16_t intensity) {
  TestPulse pulse = Single_Echo({X, Y, Z, intensity, 780});
  pulse.gain = 127;
  return pulse;
}
TestPulse Echo_2006(double X, double Y, double Z, std::int16_t intensity) {
  return Single_Echo({X, Y, Z, intensity, 840});
}

struct PulseOverlays : LidarBlock, testing::Test {};

TEST_F(PulseOverlays, Of2007DrawsHighSingleEchoesOnEveryImage) {
  Load_Flat_Ground();
  TestPulse two = Echo_2007(kX, kY, 190, 60);
  two.echo_count = 2;
  two.slot[3] = {kX, kY, 180, 60, 780};
  // 73 x 1.0225 = 74.6 -> 75: index 127.5, row 32.
  Write_Tile("2007", {Echo_2007(kX + 10, kY + 5, 120, 73), two, Echo_2007(kX, kY, 106, 73),
                      Echo_2007(kX - 3, kY, 110, 28), Echo_2007(kX - 4, kY, 110, 489)});
  Plot_ALS_2007(w);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 3U);
    Expect_Point(k, 0, {kX + 10, kY + 5, 120}, 32, 3);
    Expect_Point(k, 1, {kX - 3, kY, 110}, 1, 3);
    Expect_Point(k, 2, {kX - 4, kY, 110}, 63, 3);
  }
  EXPECT_EQ(w.LidarPulses.Count(), 5);
  EXPECT_EQ(folder.Read("c/data/lidtest.txt"), "");
}

TEST_F(PulseOverlays, CorrectedIntensity29HasTheColourOf30) {
  Load_Flat_Ground();
  // 28 -> 28.63 -> 29; 29 -> 29.65 -> 30.
  Write_Tile("2007", {Echo_2007(kX, kY, 120, 28), Echo_2007(kX, kY, 120, 29)});
  Plot_ALS_2007(w);
  ASSERT_EQ(Marks(0).size(), 2U);
  EXPECT_EQ(Marks(0)[0].colour, Marks(0)[1].colour);
}

TEST_F(PulseOverlays, Of2007AnEcho150MetresAwayIsNotDrawn) {
  Load_Flat_Ground();
  w.Solution3D.X = 2516430;
  Write_Tile("2007", {Echo_2007(2516580, kY, 120, 60), Echo_2007(2516579.99, kY, 120, 60)});
  Plot_ALS_2007(w);
  EXPECT_EQ(Marks(0).size(), 1U);
}

TEST_F(PulseOverlays, WithoutAGroundModelTheGroundIsBelowEverything) {
  Write_Tile("2007", {Echo_2007(kX, kY, -92, 60), Echo_2007(kX, kY, -94, 60)});  // ground -99
  Plot_ALS_2007(w);
  EXPECT_EQ(Marks(0).size(), 1U);
}

TEST_F(PulseOverlays, Of2006DrawsEveryEchoOfAHighSensor) {
  TestPulse low = Echo_2006(kX, kY, 120, 100);
  low.sensor[2] = 1000;
  TestPulse two = Echo_2006(kX + 1, kY, 120, 126);  // (126 - 2) / 248 x 255 = 127.5: row 32
  two.echo_count = 2;
  two.slot[3] = {kX + 2, kY, 101, 1, 840};  // raised to 2
  Write_Tile("2006", {low, two, Echo_2006(kX + 3, kY, 50, 3000)});
  Print_ALS_near_solution(w);
  for (int k = 0; k < 2; ++k) {
    ASSERT_EQ(Marks(k).size(), 3U);
    Expect_Point(k, 0, {kX + 2, kY, 101}, 1, 3);  // slot 3 before slot 4
    Expect_Point(k, 1, {kX + 1, kY, 120}, 32, 3);
    Expect_Point(k, 2, {kX + 3, kY, 50}, 63, 3);
  }
  EXPECT_EQ(folder.Read("c/data/lidtest.txt"), "");
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(PulseOverlays, OnlyTheSolutionsTileIsRead) {
  w.Solution3D = {2516499.9, kY, 110};
  Write_Tile("2006", {Echo_2006(2516495, kY, 120, 100)});
  folder.Write("c/als2006/065_070.bin",
               Counted_Bytes(std::vector{Echo_2006(2516501, kY, 120, 100)}));
  Print_ALS_near_solution(w);
  EXPECT_EQ(Marks(0).size(), 1U);
  EXPECT_EQ(w.LidarPulses.Count(), 1);
}

TEST_F(PulseOverlays, ACountOfZeroChangesNothingWithoutAMessage) {
  Write_Tile("2006", {Echo_2006(kX, kY, 120, 100)});
  Print_ALS_near_solution(w);
  for (Picture& pane : w.Form1.Picture1) Erase_Marks(pane);
  std::filesystem::remove(folder.Path() / "c/data/lidtest.txt");
  Write_Tile("2006", {});
  Print_ALS_near_solution(w);
  EXPECT_TRUE(Marks(0).empty());
  EXPECT_EQ(w.LidarPulses.Count(), 1);
  EXPECT_FALSE(folder.Has("c/data/lidtest.txt"));
  EXPECT_TRUE(screen.messages.empty());
}

TEST_F(PulseOverlays, AMissingTileIsCreatedEmpty) {
  for (const auto command : {Plot_ALS_2007, Print_ALS_near_solution, Plot_Lidar_pdf}) command(w);
  EXPECT_EQ(folder.Read("c/als2006/064_070.bin"), "");
  EXPECT_EQ(folder.Read("c/als2007/064_070.bin"), "");
  EXPECT_TRUE(screen.messages.empty());
  EXPECT_EQ(w.PlotPageScale, 0);
}

TEST_F(PulseOverlays, AMissingHeaderIsNamed) {
  std::filesystem::remove(folder.Path() / "c/data/als2006_path.hdr");
  const std::string failure = "File not found: c:\\data\\als2006_path.hdr";
  EXPECT_EQ(Failure_Of([&] { Print_ALS_near_solution(w); }), failure);
  EXPECT_EQ(Failure_Of([&] { Plot_Lidar_pdf(w); }), failure);
}

TEST_F(PulseOverlays, AMissingColourMapIsNamedBeforeAnythingIsRead) {
  std::filesystem::remove(folder.Path() / "c/data/JetColorMAP.csv");
  EXPECT_EQ(Failure_Of([&] { Plot_ALS_2007(w); }), "File not found: C:\\data\\JetColorMAP.csv");
  EXPECT_FALSE(folder.Has("c/als2007/064_070.bin"));
}

TEST_F(PulseOverlays, ATruncatedTileIsRejectedAndKeepsTheTable) {
  Write_Tile("2006", {Echo_2006(kX, kY, 120, 100)});
  Print_ALS_near_solution(w);
  folder.Write("c/als2006/064_070.bin", Announced_Bytes(2, 300));
  EXPECT_EQ(Failure_Of([&] { Print_ALS_near_solution(w); }),
            "Bad content: c:\\als2006\\064_070.bin, 2 records of 207 bytes need 418 bytes, the "
            "file has 304");
  EXPECT_EQ(w.LidarPulses.Count(), 1);
  EXPECT_EQ(Marks(0).size(), 1U);
}

TEST_F(PulseOverlays, AnIntensityOverflowIsNamedAfterEarlierEchoesAreDrawn) {
  TestPulse bad = Echo_2006(kX, kY, 120, 32767);
  bad.slot[4].range = 1680;
  Write_Tile("2006", {Echo_2006(kX, kY, 120, 100), bad, Echo_2006(kX, kY, 120, 100)});
  const std::string failure = Failure_Of([&] { Print_ALS_near_solution(w); });
  EXPECT_EQ(failure.substr(0, 82),
            "Overflow: c:\\als2006\\064_070.bin, pulse 2, echo slot 4, corrected intensity: 16136");
  EXPECT_EQ(Marks(0).size(), 1U);
  EXPECT_EQ(Marks(1).size(), 1U);
}

TEST_F(PulseOverlays, ThePagePreparationSizesTheTableAndDrawsNothing) {
  Write_Tile("2006", {Echo_2006(kX, kY, 120, 100), Echo_2006(kX, kY, 120, 100)});
  Plot_Lidar_pdf(w);
  EXPECT_EQ(w.LidarPulses.Count(), 2);
  EXPECT_DOUBLE_EQ(w.PlotPageScale, 0.55);
  EXPECT_TRUE(Marks(0).empty());
  EXPECT_FALSE(folder.Has("c/data/lidtest.txt"));
}

}  // namespace
}  // namespace sylvomex
