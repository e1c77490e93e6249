// SPDX-License-Identifier: MIT
#include "lidar/echo_selection.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"
#include "support/lidar_files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

struct Selection : testing::Test {
  TemporaryFolder folder;
  PulseTable table;
  std::vector<SelectedEcho> echoes;

  void Read(const std::vector<TestPulse>& pulses) {
    Read_Pulse_Tile(folder.Write("t.bin", Counted_Bytes(pulses)), table);
  }
  // Solution at (1000, 2000), ground at 100 m.
  void Select_2006() { Select_Echoes_2006(table, 1000, 2000, echoes); }
  void Select_2007() {
    Select_Echoes_2007(
        table, 1000, 2000, [](double, double) { return 100.0; }, echoes);
  }
};

// At a range of 780 m and a gain of 127 the corrected intensity is 1.0225 times the raw one.
TestPulse High_Single(double X, double Y, std::int16_t intensity) {
  TestPulse pulse = Single_Echo({X, Y, 120, intensity, 780});
  pulse.gain = 127;
  return pulse;
}

TEST(CorrectedIntensity, IsTheRawOneAtTheUsualRange) {
  EXPECT_EQ(Corrected_Intensity_2006(123, 840), 123);
}

TEST(CorrectedIntensity, FollowsThePowerOfTheRange) {
  // 0.5^2.3 = 0.203063, 2^2.3 = 4.924578; 0.5^2.5 = 0.176777, gain 127: + 0.0225 times.
  EXPECT_EQ(Corrected_Intensity_2006(1000, 420), 203);
  EXPECT_EQ(Corrected_Intensity_2006(100, 1680), 492);
  EXPECT_EQ(Corrected_Intensity_2007(1000, 390, 127), 199);
}

TEST(CorrectedIntensity, AddsTheGainTerm) {
  // 100 + (127.5 - 27) x 4.5 = 552.25; 100 + (127.5 - 255) x 4.5 = -473.75.
  EXPECT_EQ(Corrected_Intensity_2007(100, 780, 27), 552);
  EXPECT_EQ(Corrected_Intensity_2007(100, 780, 255), -474);
}

TEST(CorrectedIntensity, RoundsTiesToEven) {
  // 1000 + 0.5 x 45 = 1022.5 and 1000 - 0.5 x 45 = 977.5.
  EXPECT_EQ(Corrected_Intensity_2007(1000, 780, 127), 1022);
  EXPECT_EQ(Corrected_Intensity_2007(1000, 780, 128), 978);
}

TEST(CorrectedIntensity, BeyondSixteenBitsIsAnOverflow) {
  EXPECT_THROW(Corrected_Intensity_2006(32767, 1680), RunTimeError);
  EXPECT_THROW(Corrected_Intensity_2006(100, -1), RunTimeError);  // no power of a negative base
}

TEST_F(Selection, AnEchoExactly150MetresAwayIsNotDrawn) {
  Read({High_Single(1150, 2000, 50), High_Single(1090, 2120, 50), High_Single(1149.999, 2000, 50),
        High_Single(1000, 1850.001, 50)});
  Select_2007();
  ASSERT_EQ(echoes.size(), 2U);
  EXPECT_EQ(echoes[0].at.X, 1149.999);
  EXPECT_EQ(echoes[1].at.Y, 1850.001);
  echoes.clear();
  Select_2006();
  EXPECT_EQ(echoes.size(), 2U);
}

TEST_F(Selection, IntensitiesAreClampedIntoTheScale) {
  // 2007: 28 x 1.0225 = 28.63 -> 29 -> 30; 489 x 1.0225 = 500.0025 -> 500 -> 119.98.
  Read({High_Single(1000, 2000, 28), High_Single(1000, 2000, 489), High_Single(1000, 2000, 60)});
  Select_2007();
  ASSERT_EQ(echoes.size(), 3U);
  EXPECT_EQ(echoes[0].value, 30);
  EXPECT_DOUBLE_EQ(echoes[1].value, 119.98);
  EXPECT_EQ(echoes[2].value, 61);
}

TEST_F(Selection, The2006ScaleRunsFrom2To250) {
  TestPulse low = Single_Echo({1000, 2000, 120, -5, 840});
  TestPulse high = Single_Echo({1000, 2000, 120, 251, 840});
  TestPulse top = Single_Echo({1000, 2000, 120, 250, 840});
  Read({low, high, top});
  Select_2006();
  ASSERT_EQ(echoes.size(), 3U);
  EXPECT_EQ(echoes[0].value, 2);
  EXPECT_DOUBLE_EQ(echoes[1].value, 249.98);
  EXPECT_EQ(echoes[2].value, 250);
}

TEST_F(Selection, Only2007SingleEchoesAboveSixMetresAreDrawn) {
  TestPulse two = High_Single(1000, 2000, 50);
  two.echo_count = 2;
  two.slot[3] = two.slot[4];
  TestPulse at_six = High_Single(1000, 2000, 50);
  at_six.slot[4].Z = 106;
  TestPulse above_six = at_six;
  above_six.slot[4].Z = 106.01;
  Read({two, at_six, above_six});
  Select_2007();
  ASSERT_EQ(echoes.size(), 1U);
  EXPECT_EQ(echoes[0].at.Z, 106.01);
}

TEST_F(Selection, Only2006PulsesWithTheSensorAbove1000MetresAreDrawn) {
  TestPulse low = Single_Echo({1000, 2000, 50, 100, 840});
  low.sensor[2] = 1000;
  TestPulse high = low;
  high.sensor[2] = 1000.5;
  high.slot[4].Z = 51;  // below the ground: the height must not matter
  Read({low, high});
  Select_2006();
  ASSERT_EQ(echoes.size(), 1U);
  EXPECT_EQ(echoes[0].at.Z, 51);
}

TEST_F(Selection, EchoesComeByPulseThenBySlot) {
  TestPulse first;
  first.echo_count = 4;
  for (int k = 1; k <= 4; ++k) first.slot[k] = {1000.0 + k, 2000, 120, 10, 840};
  Read({first, Single_Echo({1009, 2000, 120, 10, 840})});
  Select_2006();
  ASSERT_EQ(echoes.size(), 5U);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(echoes[i].at.X, 1001.0 + static_cast<double>(i));
  EXPECT_EQ(echoes[4].at.X, 1009);
}

TEST_F(Selection, AnOverflowNamesPulseAndSlotAndKeepsEarlierEchoes) {
  TestPulse bad = Single_Echo({1000, 2000, 120, 32767, 1680});
  bad.sensor[2] = 10;  // not drawn, but its intensity is computed
  TestPulse far = Single_Echo({5000, 2000, 120, 32767, 1680});
  Read(
      {far, Single_Echo({1001, 2000, 120, 10, 840}), bad, Single_Echo({1002, 2000, 120, 10, 840})});
  EXPECT_EQ(Failure_Of([&] { Select_2006(); }).substr(0, 59),
            "Overflow: pulse 3, echo slot 4, corrected intensity: 161363");
  ASSERT_EQ(echoes.size(), 1U);
  EXPECT_EQ(echoes[0].at.X, 1001);
}

}  // namespace
}  // namespace sylvomex
