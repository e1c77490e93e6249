// SPDX-License-Identifier: MIT
#include "lidar/cell_heights.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace sylvomex {
namespace {

Lidar2004Record Last(double X, double Y, float Z) {
  Lidar2004Record record;
  record.LastX = X;
  record.LastY = Y;
  record.LastZ = Z;
  return record;
}

TEST(CellHeights, AreMeanAndMinimumOfTheEchoesInTheCell) {
  const std::vector<Lidar2004Record> records = {Last(10, 20, 150), Last(10.4, 19.6, 160),
                                                Last(11, 20, 10)};
  const auto heights = LastEchoes(records).Of_Cell(10, 20, 1);
  ASSERT_TRUE(heights);
  EXPECT_EQ(heights->mean, 155);
  EXPECT_EQ(heights->minimum, 150);
}

TEST(CellHeights, AnEchoOnTheCellsEdgeLiesInNoCell) {
  const std::vector<Lidar2004Record> records = {Last(10.5, 20, 150), Last(9.5, 20, 150),
                                                Last(10, 20.5, 150), Last(10, 19.5, 150)};
  EXPECT_FALSE(LastEchoes(records).Of_Cell(10, 20, 1));
  EXPECT_FALSE(LastEchoes(records).Of_Cell(11, 20, 1));
}

TEST(CellHeights, TheMinimumStaysAt1000WhenAllLiesAbove) {
  const auto heights = LastEchoes(std::vector{Last(10, 20, 1500)}).Of_Cell(10, 20, 1);
  ASSERT_TRUE(heights);
  EXPECT_EQ(heights->mean, 1500);
  EXPECT_EQ(heights->minimum, 1000);
}

TEST(CellHeights, TheSumIsTakenInTheOrderOfTheRecords) {
  // From west to east it would be 1e20 + 3 - 1e20, which is 0 in double precision.
  const std::vector<Lidar2004Record> records = {Last(10, 20, 1e20F), Last(10.2, 20, -1e20F),
                                                Last(10.1, 20, 3)};
  EXPECT_EQ(LastEchoes(records).Of_Cell(10, 20, 1)->mean, 1);
}

TEST(CellHeights, NaNCoordinatesLieInNoCell) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const double far = std::numeric_limits<double>::infinity();
  const std::vector<Lidar2004Record> records = {Last(none, 20, 1), Last(10, none, 1),
                                                Last(far, 20, 1), Last(-far, 20, 1)};
  EXPECT_FALSE(LastEchoes(records).Of_Cell(10, 20, 1));
  EXPECT_FALSE(LastEchoes({}).Of_Cell(10, 20, 1));
}

// The definition: a linear search over the records.
std::optional<CellHeights> Plain_Walk(const std::vector<Lidar2004Record>& records, double X,
                                      double Y, double size) {
  double sum = 0, minimum = 1000;
  int count = 0;
  for (const Lidar2004Record& record : records) {
    if (!(std::abs(X - record.LastX) < size / 2 && std::abs(Y - record.LastY) < size / 2)) continue;
    ++count;
    const double Z = record.LastZ;
    sum += Z;
    if (Z < minimum) minimum = Z;
  }
  if (count == 0) return std::nullopt;
  return CellHeights{static_cast<float>(sum / count), static_cast<float>(minimum)};
}

TEST(CellHeights, MatchALinearSearchToTheBit) {
  std::mt19937 random(3);
  // A lattice of tenths, so that many echoes lie on edges.
  std::uniform_int_distribution<int> tenth(0, 400);
  std::uniform_real_distribution<float> exponent(-8, 8);
  std::vector<Lidar2004Record> records;
  for (int i = 0; i < 5000; ++i) {
    records.push_back(Last(2514000 + tenth(random) / 10.0, 6855000 + tenth(random) / 10.0,
                           std::pow(10.0F, exponent(random))));
  }
  const LastEchoes echoes(records);
  for (const double size : {0.2, 1.0, 2.5, 60.0, 0.0, -1.0}) {
    for (int i = 0; i < 300; ++i) {
      const double X = 2514000 + tenth(random) / 10.0 + 0.05 * (i % 3);
      const double Y = 6855000 + tenth(random) / 10.0 + 0.05 * (i % 2);
      const auto fast = echoes.Of_Cell(X, Y, size);
      const auto plain = Plain_Walk(records, X, Y, size);
      ASSERT_EQ(fast.has_value(), plain.has_value());
      if (!fast) continue;
      EXPECT_EQ(fast->mean, plain->mean);
      EXPECT_EQ(fast->minimum, plain->minimum);
    }
  }
}

}  // namespace
}  // namespace sylvomex
