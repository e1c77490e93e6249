// SPDX-License-Identifier: MIT
#include "closedlib/index_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

#include "matching_inputs.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

using Index = std::vector<std::int32_t>;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// scores start at entry 1; entry 0 of the result shows that it was not written.
Index Sorted(std::vector<float> scores, int threads = 1) {
  scores.insert(scores.begin(), -1e30F);
  Index index(scores.size(), 77);
  MYFUNC_INDEXX(scores, index, threads);
  return index;
}

Index Sorted_By_Library(const std::vector<float>& scores) {
  Index index(scores.size());
  std::iota(index.begin(), index.end(), 1);
  std::stable_sort(index.begin(), index.end(), [&](std::int32_t a, std::int32_t b) {
    const float x = scores[static_cast<std::size_t>(a - 1)];
    const float y = scores[static_cast<std::size_t>(b - 1)];
    return x < y || (std::isnan(y) && !std::isnan(x));
  });
  index.insert(index.begin(), 77);
  return index;
}

TEST(IndexSort, CountsFromOneAndLeavesEntryZero) {
  EXPECT_EQ(Sorted({0.3F, 0.1F, 0.2F}), (Index{77, 2, 3, 1}));
}

TEST(IndexSort, OneEntryAndNone) {
  EXPECT_EQ(Sorted({5}), (Index{77, 1}));
  EXPECT_EQ(Sorted({}), (Index{77}));
  MYFUNC_INDEXX({}, {});
}

TEST(IndexSort, EqualScoresKeepTheirOrder) {
  EXPECT_EQ(Sorted({2, 1, 2, 1, 2}), (Index{77, 2, 4, 1, 3, 5}));
}

TEST(IndexSort, MinusZeroIsEqualToZero) {
  EXPECT_EQ(Sorted({0.0F, -0.0F, 0.0F, -0.0F, -1}), (Index{77, 5, 1, 2, 3, 4}));
}

TEST(IndexSort, NegativeScoresInfinitiesAndTinyOnes) {
  constexpr float kTiny = std::numeric_limits<float>::denorm_min();
  EXPECT_EQ(Sorted({kInfinity, kTiny, -kTiny, 0, -kInfinity, -2, -1}),
            (Index{77, 5, 6, 7, 3, 4, 2, 1}));
}

TEST(IndexSort, NaNsSortAboveAllInTheirOrder) {
  EXPECT_EQ(Sorted({kNan, kInfinity, -kNan, 1}), (Index{77, 4, 2, 1, 3}));
}

TEST(IndexSort, ShortIndexIsRejected) {
  const std::vector<float> scores(5);
  Index index(4);
  EXPECT_THROW(MYFUNC_INDEXX(scores, index), RunTimeError);
}

TEST(IndexSort, EntriesOfTheIndexBeyondTheScoresStayUnchanged) {
  const std::vector<float> scores = {0, 2, 1};
  Index index(5, 77);
  MYFUNC_INDEXX(scores, index);
  EXPECT_EQ(index, (Index{77, 2, 1, 77, 77}));
}

std::vector<float> Random_Scores(std::size_t count, std::uint32_t seed) {
  std::mt19937 random(seed);
  std::vector<float> scores(count);
  for (float& s : scores) {
    switch (random() % 5) {
      case 0:
        s = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        break;
      case 1:
        s = static_cast<float>(random() % 8) - 4;
        break;
      case 2:
        s = random() % 2 ? 0.0F : -0.0F;
        break;
      default:
        s = static_cast<float>(random()) * 0x1p-31F;
    }
  }
  return scores;
}

TEST(IndexSort, RandomScoresOfAllSizesAgreeWithStableSort) {
  for (const std::size_t count : {2U, 3U, 100U, 2046U, 2047U, 2048U, 2049U, 5000U, 70000U}) {
    const std::vector<float> scores = Random_Scores(count, 3);
    EXPECT_EQ(Sorted(scores), Sorted_By_Library(scores)) << count;
  }
}

TEST(IndexSort, ManyThreadsGiveTheSameOrder) {
  for (const std::size_t count : {131072U, 200001U, 600000U}) {
    const std::vector<float> scores = Random_Scores(count, 12);
    const Index expected = Sorted_By_Library(scores);
    EXPECT_TRUE(Sorted(scores, 0) == expected) << count;
    EXPECT_TRUE(Sorted(scores, 1) == expected) << count;
  }
}

TEST(IndexSort, AllEqualKeepMeshOrder) {
  const std::vector<float> scores(300000, 1.25F);
  Index expected(scores.size() + 1);
  std::iota(expected.begin(), expected.end(), 0);
  expected[0] = 77;
  EXPECT_TRUE(Sorted(scores, 0) == expected);
}

/// Rank-weighted sum over a million scores on which five library sorts agree.
TEST(IndexSort, SumOfAMillionScoresIsThatOfTheLibraries) {
  constexpr std::size_t kCount = 1000000;
  const std::vector<float> scores = bench::Scores(kCount);
  Index index(kCount + 1);
  MYFUNC_INDEXX(scores, index);
  double sum = 0;
  for (std::size_t k = 1; k <= kCount; k += 97) {
    sum += static_cast<double>(k) * static_cast<double>(scores[static_cast<std::size_t>(index[k])]);
  }
  EXPECT_NEAR(sum, 5.99870017e+09, 5);
}

}  // namespace
}  // namespace sylvomex
