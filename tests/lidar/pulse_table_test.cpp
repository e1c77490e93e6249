// SPDX-License-Identifier: MIT
#include "lidar/pulse_table.h"

#include <gtest/gtest.h>

#include <random>

#include "lidar/counted_file.h"
#include "support/failure_of.h"
#include "support/lidar_files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TestPulse Random_Pulse(std::mt19937& random) {
  std::uniform_real_distribution<double> real(-1e7, 1e7);
  std::uniform_int_distribution<int> whole(-32768, 32767);
  TestPulse pulse;
  pulse.echo_count = static_cast<std::uint8_t>(whole(random));
  for (int k = 1; k <= 4; ++k) {
    pulse.slot[k] = {real(random), real(random), real(random),
                     static_cast<std::int16_t>(whole(random)), real(random)};
  }
  pulse.value = real(random);
  for (double& coordinate : pulse.sensor) coordinate = real(random);
  pulse.code = static_cast<std::int16_t>(whole(random));
  pulse.byte_a = static_cast<std::uint8_t>(whole(random));
  pulse.gain = static_cast<std::uint8_t>(whole(random));
  pulse.byte_b = static_cast<std::uint8_t>(whole(random));
  pulse.byte_c = static_cast<std::uint8_t>(whole(random));
  return pulse;
}

std::vector<TestPulse> Random_Pulses(int count) {
  std::mt19937 random(7);
  std::vector<TestPulse> pulses;
  for (int i = 0; i < count; ++i) pulses.push_back(Random_Pulse(random));
  return pulses;
}

void Expect_Equal(const LidarPulse& pulse, const TestPulse& written) {
  EXPECT_EQ(pulse.EchoCount, written.echo_count);
  for (int k = 1; k <= 4; ++k) {
    EXPECT_EQ(pulse.Slot(k).X, written.slot[k].X);
    EXPECT_EQ(pulse.Slot(k).Y, written.slot[k].Y);
    EXPECT_EQ(pulse.Slot(k).Z, written.slot[k].Z);
    EXPECT_EQ(pulse.Slot(k).Intensity, written.slot[k].intensity);
    EXPECT_EQ(pulse.Slot(k).Range, written.slot[k].range);
  }
  EXPECT_EQ(pulse.PulseValue, written.value);
  EXPECT_EQ(pulse.SensorX, written.sensor[0]);
  EXPECT_EQ(pulse.SensorY, written.sensor[1]);
  EXPECT_EQ(pulse.SensorZ, written.sensor[2]);
  EXPECT_EQ(pulse.PulseCode, written.code);
  EXPECT_EQ(pulse.PulseByteA, written.byte_a);
  EXPECT_EQ(pulse.Gain, written.gain);
  EXPECT_EQ(pulse.PulseByteB, written.byte_b);
  EXPECT_EQ(pulse.PulseByteC, written.byte_c);
}

struct Tile : testing::Test {
  TemporaryFolder folder;
  PulseTable table;

  FilePath Write(const std::vector<TestPulse>& pulses) {
    return folder.Write("064_070.bin", Counted_Bytes(pulses));
  }
  std::string Failure_Of_Reading(const std::string& content) {
    const FilePath file = folder.Write("064_070.bin", content);
    return Failure_Of([&] { Read_Pulse_Tile(file, table); });
  }
};

TEST_F(Tile, TheTestRecordHas207Bytes) { EXPECT_EQ(TestPulse{}.Bytes().size(), 207U); }

TEST_F(Tile, EveryFieldOfEveryPulseArrivesOnOneThreadAndOnMany) {
  // Counts around the sizes of the blocks that are copied together and read together.
  for (const int count : {1, 3, 63, 64, 65, 511, 512, 513, 1300}) {
    const std::vector<TestPulse> pulses = Random_Pulses(count);
    const FilePath file = Write(pulses);
    for (const int threads : {1, 0}) {
      PulseTable fresh;
      ASSERT_EQ(Read_Pulse_Tile(file, fresh, threads), count);
      ASSERT_EQ(fresh.Count(), count);
      for (int i = 1; i <= count; ++i) {
        Expect_Equal(fresh(i), pulses[static_cast<std::size_t>(i - 1)]);
      }
    }
  }
}

TEST_F(Tile, ReadingRecordByRecordGivesTheSameTable) {
  const std::vector<TestPulse> pulses = Random_Pulses(700);
  const FilePath file = Write(pulses);
  Read_Pulse_Tile(file, table);
  const PositionalFile open_file(file);
  std::vector<std::uint8_t> record(207);
  for (int i = 1; i <= Read_Record_Count(file); ++i) {
    open_file.Read_At(4 + 207 * (i - 1), record);
    const auto entry = static_cast<std::size_t>(i - 1);
    EXPECT_EQ(table.EchoCount()[entry], record[8]);
    for (int k = 1; k <= 4; ++k) {
      const auto slot = static_cast<std::size_t>(k - 1);
      EXPECT_EQ(table.X(k)[entry], Value_At<double>(record.data(), 9 + 24 * slot));
      EXPECT_EQ(table.Y(k)[entry], Value_At<double>(record.data(), 17 + 24 * slot));
      EXPECT_EQ(table.Z(k)[entry], Value_At<double>(record.data(), 25 + 24 * slot));
      EXPECT_EQ(table.Intensity(k)[entry], Value_At<std::int16_t>(record.data(), 105 + 2 * slot));
      EXPECT_EQ(table.Range(k)[entry], Value_At<double>(record.data(), 113 + 8 * slot));
    }
    EXPECT_EQ(table.SensorZ()[entry], Value_At<double>(record.data(), 193));
    EXPECT_EQ(table.Gain()[entry], record[204]);
  }
}

TEST_F(Tile, ASingleEchoIsInSlotFourAndLeavesTheOthersAtZero) {
  Read_Pulse_Tile(Write({Single_Echo({2516431.2, 6857012.9, 180})}), table);
  EXPECT_EQ(table(1).EchoCount, 1);
  EXPECT_EQ(table(1).Slot(4).X, 2516431.2);
  for (int k = 1; k <= 3; ++k) EXPECT_EQ(table(1).Slot(k).X, 0);
}

TEST_F(Tile, ASmallerTileReplacesTheTable) {
  const std::vector<TestPulse> pulses = Random_Pulses(100);
  Read_Pulse_Tile(Write(pulses), table);
  Read_Pulse_Tile(Write({pulses[40], pulses[2]}), table);
  ASSERT_EQ(table.Count(), 2);
  Expect_Equal(table(1), pulses[40]);
  Expect_Equal(table(2), pulses[2]);
  EXPECT_EQ(table.X(1).size(), 2U);
}

TEST_F(Tile, ACountOfZeroLeavesTheTable) {
  Read_Pulse_Tile(Write({Single_Echo({5, 6, 7})}), table);
  EXPECT_EQ(Read_Pulse_Tile(Write({}), table), 0);
  EXPECT_EQ(table.Count(), 1);
  EXPECT_EQ(table(1).Slot(4).Y, 6);
}

TEST_F(Tile, AMissingTileIsCreatedEmptyAndCountsZero) {
  EXPECT_EQ(Read_Pulse_Tile(folder.File("063_070.bin"), table), 0);
  EXPECT_EQ(folder.Read("063_070.bin"), "");
  EXPECT_EQ(table.Count(), 0);
}

TEST_F(Tile, AMissingFolderIsNamed) {
  EXPECT_EQ(Failure_Of([&] { Read_Pulse_Tile(folder.File("als/063_070.bin"), table); }),
            "Path not found: als/063_070.bin");
}

TEST_F(Tile, BytesAfterTheLastPulseAreIgnored) {
  const std::string bytes = Counted_Bytes(std::vector{Single_Echo({5, 6, 7})}) + "more";
  EXPECT_EQ(Read_Pulse_Tile(folder.Write("t.bin", bytes), table), 1);
}

TEST_F(Tile, AnInvalidTileIsRejectedAndLeavesTheTable) {
  Read_Pulse_Tile(Write({Single_Echo({5, 6, 7})}), table);
  EXPECT_EQ(Failure_Of_Reading(Announced_Bytes(5, 496)),
            "Bad content: 064_070.bin, 5 records of 207 bytes need 1039 bytes, the file has 500");
  EXPECT_EQ(Failure_Of_Reading(Announced_Bytes(-3, 207)),
            "Bad content: 064_070.bin, -3 records of 207 bytes are announced, the file has 211 "
            "bytes");
  EXPECT_EQ(Failure_Of_Reading(Announced_Bytes(2147483647, 207)),
            "Bad content: 064_070.bin, 2147483647 records of 207 bytes need 444529114933 bytes, "
            "the file has 211");
  EXPECT_EQ(Failure_Of_Reading("ab"),
            "Bad content: 064_070.bin, a record count takes 4 bytes, the file has 2");
  EXPECT_EQ(table.Count(), 1);
  EXPECT_EQ(table(1).Slot(4).Z, 7);
}

TEST_F(Tile, IndicesCountFromOne) {
  Read_Pulse_Tile(Write({Single_Echo({5, 6, 7})}), table);
  EXPECT_THROW(table(0), RunTimeError);
  EXPECT_THROW(table(2), RunTimeError);
  EXPECT_THROW(PulseTable()(1), RunTimeError);
}

}  // namespace
}  // namespace sylvomex
