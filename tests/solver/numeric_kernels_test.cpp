// SPDX-License-Identifier: MIT
#include "solver/numeric_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <random>
#include <vector>

#include "support/failure_of.h"

namespace sylvomex {
namespace {

class Told {
 public:
  Report Sink() {
    return [this](std::string_view sentence) { sentences.emplace_back(sentence); };
  }
  std::vector<std::string> sentences;
};

std::vector<std::int32_t> Sorted_Index(const std::vector<float>& values) {
  Told told;
  std::vector<std::int32_t> index(values.size(), -1);
  Heapsort(static_cast<std::int32_t>(values.size()), values, index, told.Sink());
  EXPECT_TRUE(told.sentences.empty());
  return index;
}

void Expect_Permutation(std::vector<std::int32_t> index) {
  std::vector<std::int32_t> positions(index.size());
  std::iota(positions.begin(), positions.end(), 1);
  std::sort(index.begin(), index.end());
  EXPECT_EQ(index, positions);
}

TEST(Heapsort, PutsPositionsCountedFromOneInAscendingOrder) {
  EXPECT_EQ(Sorted_Index({30, 10, 50, 20, 40}), (std::vector<std::int32_t>{2, 4, 1, 5, 3}));
}

TEST(Heapsort, NothingToSortIsAllowed) { EXPECT_TRUE(Sorted_Index({}).empty()); }

TEST(Heapsort, OneValueIsAtPositionOne) {
  EXPECT_EQ(Sorted_Index({7}), (std::vector<std::int32_t>{1}));
}

TEST(Heapsort, EverySizeUpToTwoHundredComesOutAscending) {
  std::mt19937 random(20);
  std::uniform_real_distribution<float> uniform(-1000, 1000);
  for (std::size_t n = 2; n <= 200; ++n) {
    std::vector<float> values(n);
    for (float& value : values) value = uniform(random);
    const std::vector<std::int32_t> index = Sorted_Index(values);
    Expect_Permutation(index);
    for (std::size_t j = 1; j < n; ++j) {
      EXPECT_LE(values[static_cast<std::size_t>(index[j - 1] - 1)],
                values[static_cast<std::size_t>(index[j] - 1)]);
    }
  }
}

TEST(Heapsort, AllValuesEqualGiveAPermutation) {
  Expect_Permutation(Sorted_Index(std::vector<float>(1000, 4.5F)));
}

TEST(Heapsort, NaNValuesGiveAPermutation) {
  std::vector<float> values(501, std::nanf(""));
  for (std::size_t j = 0; j < values.size(); j += 3) values[j] = static_cast<float>(j % 17);
  values[10] = std::numeric_limits<float>::infinity();
  values[20] = -std::numeric_limits<float>::infinity();
  Expect_Permutation(Sorted_Index(values));
}

TEST(Heapsort, EntriesBeyondTheCountStayAsTheyWere) {
  const std::vector<float> values = {3, 2, 1, 0};
  std::vector<std::int32_t> index = {9, 9, 9, 9};
  Heapsort(3, values, index, {});
  EXPECT_EQ(index, (std::vector<std::int32_t>{3, 2, 1, 9}));
}

TEST(Heapsort, ArraysThatAreTooShortAreReportedWithTheLeftEnd) {
  // The left end starts at n / 2 + 1, halves to the even number.
  const std::pair<std::int32_t, const char*> cases[] = {{3, "Error in Heapsort, l is 2"},
                                                        {4, "Error in Heapsort, l is 3"},
                                                        {5, "Error in Heapsort, l is 4"}};
  const std::vector<float> values = {3, 2};
  for (const auto& [n, sentence] : cases) {
    Told told;
    std::vector<std::int32_t> index(10, 9);
    Heapsort(n, values, index, told.Sink());
    EXPECT_EQ(told.sentences, std::vector<std::string>{sentence});
  }
}

TEST(SafeSqrt, RootOfFourIsTwo) {
  Told told;
  EXPECT_DOUBLE_EQ(Safe_Sqrt(4, told.Sink()), 2);
  EXPECT_TRUE(told.sentences.empty());
}

TEST(SafeSqrt, RootOfZeroIsZeroWithoutAMessage) {
  Told told;
  EXPECT_EQ(Safe_Sqrt(0, told.Sink()), 0);
  EXPECT_TRUE(told.sentences.empty());
}

TEST(SafeSqrt, NegativeArgumentIsReportedAndAnswersASmallNumber) {
  Told told;
  EXPECT_EQ(Safe_Sqrt(-1, told.Sink()), 0.0001);
  EXPECT_EQ(told.sentences, std::vector<std::string>{"Square root of negative argument!"});
}

TEST(SafeSqrt, NaNCountsAsNegative) {
  Told told;
  EXPECT_EQ(Safe_Sqrt(std::nan(""), told.Sink()), 0.0001);
  EXPECT_EQ(told.sentences.size(), 1U);
}

TEST(VectorLength, OfTwoThreeSixIsSeven) { EXPECT_DOUBLE_EQ(Vector_Length({2, -3, 6}), 7); }

TEST(AngleBetweenVectors, HandWorkedAngles) {
  EXPECT_DOUBLE_EQ(Angle_Between_Vectors({1, 0, 0}, {0, 5, 0}), std::numbers::pi / 2);
  EXPECT_DOUBLE_EQ(Angle_Between_Vectors({1, 0, 0}, {-2, 0, 0}), std::numbers::pi);
  EXPECT_DOUBLE_EQ(Angle_Between_Vectors({1, 1, 0}, {0, 3, 3}), std::numbers::pi / 3);
}

TEST(AngleBetweenVectors, ParallelVectorsNeverGiveNaN) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int trial = 0; trial < 1000; ++trial) {
    const Vector3 v = {uniform(random), uniform(random), uniform(random)};
    const Vector3 same = {v.x * 3, v.y * 3, v.z * 3};
    EXPECT_NEAR(Angle_Between_Vectors(v, same), 0, 1e-7);
  }
}

TEST(AngleBetweenVectors, ZeroVectorIsADivisionByZero) {
  EXPECT_TRUE(Failure_Of([] {
                Angle_Between_Vectors({0, 0, 0}, {1, 0, 0});
              }).starts_with("Division by zero: "));
}

TEST(NormalizeVector, ZeroVectorIsADivisionByZeroAndStays) {
  Vector3 v;
  EXPECT_TRUE(Failure_Of([&] { Normalize_Vector(v); }).starts_with("Division by zero: "));
  EXPECT_EQ(v.x, 0);
}

TEST(VectorLength, OutOfRangeIsAnOverflow) {
  EXPECT_TRUE(Failure_Of([] { Vector_Length({1e200, 0, 0}); }).starts_with("Overflow: "));
}

TEST(NormalizeVector, KeepsTheDirectionAtLengthOne) {
  Vector3 v;
  Make_Vector(v, 2, -3, 6);
  Normalize_Vector(v);
  EXPECT_DOUBLE_EQ(v.x, 2.0 / 7);
  EXPECT_DOUBLE_EQ(v.y, -3.0 / 7);
  EXPECT_DOUBLE_EQ(v.z, 6.0 / 7);
}

TEST(RandomId8, CutsTheNumberToEightDigitsWithLeadingZeros) {
  EXPECT_EQ(Random_Id8(0), "00000000");
  EXPECT_EQ(Random_Id8(0.5), "50000000");
  EXPECT_EQ(Random_Id8(0.000012349), "00001234");
  EXPECT_EQ(Random_Id8(1 - 0x1p-53), "99999999");
}

}  // namespace
}  // namespace sylvomex
