// SPDX-License-Identifier: MIT
#include "solver/heapsort.h"

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

TEST(Heapsort, GivesPositionsFromOneInAscendingOrder) {
  EXPECT_EQ(Sorted_Index({30, 10, 50, 20, 40}), (std::vector<std::int32_t>{2, 4, 1, 5, 3}));
}

TEST(Heapsort, AnEmptyArrayIsAllowed) { EXPECT_TRUE(Sorted_Index({}).empty()); }

TEST(Heapsort, OneValueIsAtPositionOne) {
  EXPECT_EQ(Sorted_Index({7}), (std::vector<std::int32_t>{1}));
}

TEST(Heapsort, EverySizeUpToTwoHundredIsSorted) {
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

TEST(Heapsort, EntriesBeyondTheCountStayUnchanged) {
  const std::vector<float> values = {3, 2, 1, 0};
  std::vector<std::int32_t> index = {9, 9, 9, 9};
  Heapsort(3, values, index, {});
  EXPECT_EQ(index, (std::vector<std::int32_t>{3, 2, 1, 9}));
}

TEST(Heapsort, ArraysThatAreTooShortAreReportedWithTheLeftIndex) {
  // The left index starts at n / 2 + 1, n / 2 rounded half to even.
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

}  // namespace
}  // namespace sylvomex
