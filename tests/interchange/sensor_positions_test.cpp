// SPDX-License-Identifier: MIT
#include "interchange/sensor_positions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>

#include "interchange/failures.h"
#include "interchange/las_points.h"
#include "support/lidar_files.h"
#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

EchoRecord Echo(double time, double X, double Y, std::uint16_t line = 1) {
  EchoRecord echo;
  echo.key = Time_Key(time);
  echo.position = {static_cast<std::int32_t>(X), static_cast<std::int32_t>(Y), 0};
  echo.line = line;
  return echo;
}

TEST(SensorPositions, TheSensorStandsTheFlyingHeightAboveTheFirstEcho) {
  const SensorPosition sensor = Sensor_Above({10, 20, 150}, 1000, 0, std::nullopt);
  EXPECT_EQ(sensor.at.X, 10);
  EXPECT_EQ(sensor.at.Y, 20);
  EXPECT_EQ(sensor.at.Z, 1150);
  EXPECT_TRUE(sensor.known);
}

TEST(SensorPositions, ToTheLeftOfAnEchoOnTheRight) {
  // Flown east at 1000 m, 45 degrees to the right is south: the sensor is 1000 m north.
  const SensorPosition sensor = Sensor_Above({0, 0, 0}, 1000, 45, Heading{1, 0});
  EXPECT_NEAR(sensor.at.X, 0, 1e-9);
  EXPECT_NEAR(sensor.at.Y, 1000, 1e-9);
  // Flown north, 45 degrees to the left is west: the sensor is 1000 m east.
  EXPECT_NEAR(Sensor_Above({0, 0, 0}, 1000, -45, Heading{0, 1}).at.X, 1000, 1e-9);
}

// Flown east: the sensor stands 1500 m x tan(angle) to the north of an echo on the right.
TEST(SensorPositions, WholeDegreesAndFineAnglesAreTakenAsTheFilesHoldThem) {
  constexpr double kRadians = std::numbers::pi / 180;
  std::vector<EchoRecord> echoes;
  for (int i = 0; i < 10; ++i) echoes.push_back(Echo(100 + i, 10.0 * i, 0));
  FlightLines lines;
  lines.Add(echoes, {});
  const SensorPositions sensors(1500, lines);
  for (int degrees = -90; degrees <= 90; degrees += 7) {
    std::array<std::uint8_t, 28> record{};
    record[16] = static_cast<std::uint8_t>(degrees);
    EchoRecord echo = echoes.front();
    echo.angle = LasPoint(record.data(), 1).Angle();
    LasHeader header;
    header.format = 1;
    EXPECT_NEAR(sensors.Of(echo, {}, header).at.Y / (1500 * std::tan(degrees * kRadians)), 1, 1e-9);
    header.format = 6;
    echo.angle = static_cast<std::int16_t>(degrees * 100);  // of 0.006 degrees
    EXPECT_NEAR(sensors.Of(echo, {}, header).at.Y / (1500 * std::tan(degrees * 0.6 * kRadians)), 1,
                1e-9);
  }
}

TEST(SensorPositions, AnAngleWithoutAHeadingIsTold) {
  EXPECT_FALSE(Sensor_Above({0, 0, 0}, 1000, 10, std::nullopt).known);
}

TEST(FlightLines, TheHeadingIsThatOfTheEchoesMovement) {
  std::vector<EchoRecord> echoes;
  for (int i = 0; i < 2000; ++i) {  // 60 degrees east of north, swings of 300 m across
    const double along = 0.5 * i;
    const double across = 300 * std::sin(0.1 * i);
    const double s = std::sin(std::numbers::pi / 3), c = std::cos(std::numbers::pi / 3);
    echoes.push_back(
        Echo(100 + 0.01 * i, 1000 * (along * s + across * c), 1000 * (along * c - across * s)));
  }
  const EchoFrame millimetres{{0.001, 0.001, 0.001}, {0, 0, 0}};
  FlightLines whole;
  whole.Add(echoes, millimetres);
  FlightLines first, second;
  first.Add(std::span(echoes).first(700), millimetres);
  second.Add(std::span(echoes).subspan(700), millimetres);
  first.Add(second);
  for (const FlightLines& lines : {whole, first}) {
    const auto heading = lines.Heading_Of(1);
    ASSERT_TRUE(heading);
    EXPECT_NEAR(std::atan2(heading->X, heading->Y) * 180 / std::numbers::pi, 60, 1);
  }
  EXPECT_FALSE(whole.Heading_Of(2));
}

TEST(FlightLines, TheOrderOfTheEchoesDoesNotChangeTheHeadingByABit) {
  std::mt19937 random(8);
  std::vector<EchoRecord> echoes;
  for (int i = 0; i < 3000; ++i) {
    echoes.push_back(Echo(345'678 + 1.7e-3 * i, random() % 200'000, 31.0 * i + random() % 1000));
    echoes.back().line = static_cast<std::uint16_t>(1 + 64 * (i % 2));
  }
  const EchoFrame frame{{0.01, 0.01, 0.01}, {384'000, 6'675'000, 0}};
  FlightLines whole;
  whole.Add(echoes, frame);
  for (int turn = 0; turn < 20; ++turn) {
    std::shuffle(echoes.begin(), echoes.end(), random);
    FlightLines parts;
    for (std::size_t first = 0; first < 3000; first += 500) {
      FlightLines part;
      part.Add(std::span(echoes).subspan(first, 500), frame);
      parts.Add(part);
    }
    for (const std::uint16_t line : {1, 65}) {
      ASSERT_TRUE(parts.Heading_Of(line));
      EXPECT_EQ(parts.Heading_Of(line)->X, whole.Heading_Of(line)->X);
      EXPECT_EQ(parts.Heading_Of(line)->Y, whole.Heading_Of(line)->Y);
    }
  }
}

TEST(FlightLines, TimesAndPlacesThatNobodyMeasuresCountForNothing) {
  FlightLines lines;
  FlightLines::Taker taker(lines);
  for (int i = 0; i < 10; ++i) taker.Take(3, i, 5.0 * i, 0);
  for (const double absurd : {1e300, -1e300, 1e19}) {
    taker.Take(3, absurd, 0, 7);
    taker.Take(3, 4, absurd, 7);
    taker.Take(4, 4, 7, absurd);
  }
  ASSERT_TRUE(lines.Heading_Of(3));
  EXPECT_EQ(lines.Heading_Of(3)->X, 1);
  EXPECT_EQ(lines.Heading_Of(3)->Y, 0);
  EXPECT_FALSE(lines.Heading_Of(4));
}

TEST(Trajectory, IsLinearBetweenItsPositions) {
  Trajectory trajectory;
  trajectory.Add(20, {200, 0, 1020});
  trajectory.Add(10, {100, 50, 1000});
  trajectory.Sort();
  EXPECT_EQ(trajectory.At(12.5).X, 125);
  EXPECT_EQ(trajectory.At(12.5).Y, 37.5);
  EXPECT_EQ(trajectory.At(12.5).Z, 1005);
  EXPECT_EQ(trajectory.At(5).X, 100);
  EXPECT_EQ(trajectory.At(25).X, 200);
  EXPECT_FALSE(trajectory.Covers(9.9));
  EXPECT_TRUE(trajectory.Covers(20));
}

TEST(Trajectory, ACsvTableIsReadByItsColumns) {
  const TemporaryFolder folder;
  const FilePath file = folder.Write("t.csv", "Z,t,roll,X,Y\r\n900,2,0,1,2\n\n910,1,0,3,4\n");
  const Trajectory trajectory = Read_Trajectory(file.native, "EPSG:3067");
  EXPECT_EQ(trajectory.First_Time(), 1);
  EXPECT_EQ(trajectory.At(1).Z, 910);
  EXPECT_EQ(trajectory.At(2).X, 1);
}

// Zone 35 north: the central meridian 27 degrees east is X = 500000.
TEST(Trajectory, AnSbetFileIsProjectedToTheSite) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int i = 0; i < 2; ++i) {
    Append_Value(bytes, 1000.0 + i);
    Append_Value(bytes, 62 * std::numbers::pi / 180);
    Append_Value(bytes, 27 * std::numbers::pi / 180);
    Append_Value(bytes, 1234.5);
    for (int k = 0; k < 13; ++k) Append_Value(bytes, 0.0);
  }
  const Trajectory trajectory = Read_Trajectory(folder.Write("t.out", bytes).native, "EPSG:32635");
  EXPECT_NEAR(trajectory.At(1000).X, 500000, 1e-6);
  // Meridian arc of 62 degrees on WGS 84 (Helmert's series) x 0.9996.
  const double n = 1 / (2 * 298.257223563 - 1);
  const double phi = 62 * std::numbers::pi / 180;
  const double arc = 6378137 / (1 + n) *
                     ((1 + n * n / 4 + std::pow(n, 4) / 64) * phi -
                      1.5 * (n - std::pow(n, 3) / 8) * std::sin(2 * phi) +
                      15.0 / 16 * (n * n - std::pow(n, 4) / 4) * std::sin(4 * phi) -
                      35.0 / 48 * std::pow(n, 3) * std::sin(6 * phi));
  EXPECT_NEAR(trajectory.At(1000).Y, 0.9996 * arc, 1e-3);
  EXPECT_EQ(trajectory.At(1000).Z, 1234.5);
}

TEST(Trajectory, WhatIsNeitherIsRefused) {
  const TemporaryFolder folder;
  EXPECT_THROW(Read_Trajectory(folder.Path() / "none", "EPSG:3067"), Refused);
  EXPECT_THROW(Read_Trajectory(folder.Write("a", std::string(100, '\0')).native, "EPSG:3067"),
               Refused);
  EXPECT_THROW(Read_Trajectory(folder.Write("b", "t,X,Y\n1,2,3\n").native, "EPSG:3067"), Refused);
  EXPECT_THROW(Read_Trajectory(folder.Write("c", "t,X,Y,Z\n1,2,3,x\n").native, "EPSG:3067"),
               Refused);
  EXPECT_THROW(Read_Trajectory(folder.Write("d", "t,X,Y,Z\n1,2,3,4\n").native, "EPSG:3067"),
               Refused);
}

TEST(Trajectory, StandardTimesAreBroughtToTheWeek) {
  Trajectory trajectory;
  trajectory.Add(1000, {});
  trajectory.Add(2000, {});
  // 1e9 s are 1653 weeks and 265600 s, so 339200 s less begin a week; 1500 s later:
  EXPECT_EQ(Trajectory_Time(trajectory, 339200 + 1500, true), 1500);
  EXPECT_EQ(Trajectory_Time(trajectory, 1500, false), 1500);
}

}  // namespace
}  // namespace sylvomex
