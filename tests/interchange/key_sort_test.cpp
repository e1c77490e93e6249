// SPDX-License-Identifier: MIT
#include "interchange/key_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

namespace sylvomex {
namespace {

std::vector<KeyedIndex> Numbered(const std::vector<std::uint64_t>& keys) {
  std::vector<KeyedIndex> entries;
  for (const std::uint64_t key : keys) {
    entries.push_back({key, static_cast<std::uint32_t>(entries.size())});
  }
  return entries;
}

void Expect_As_A_Stable_Sort(const std::vector<std::uint64_t>& keys) {
  std::vector<KeyedIndex> sorted = Numbered(keys), plain = Numbered(keys);
  Sort_By_Keys(sorted);
  std::stable_sort(plain.begin(), plain.end(),
                   [](const KeyedIndex& a, const KeyedIndex& b) { return a.key < b.key; });
  EXPECT_EQ(sorted, plain);
}

TEST(KeySort, SortsKeysOfAnySpreadStably) {
  std::mt19937_64 random(5);
  for (const unsigned bits : {1U, 10U, 11U, 12U, 22U, 23U, 40U, 63U, 64U}) {
    std::vector<std::uint64_t> keys;
    for (int i = 0; i < 5000; ++i) keys.push_back(random() >> (64 - bits));
    Expect_As_A_Stable_Sort(keys);
  }
}

TEST(KeySort, SortsAroundAKeyFarFromZero) {
  const std::uint64_t far = std::numeric_limits<std::uint64_t>::max() - 5;
  Expect_As_A_Stable_Sort({far + 5, far, far + 2, far, far + 5, far + 1});
  Expect_As_A_Stable_Sort({std::numeric_limits<std::uint64_t>::max(), 0, 1});
}

TEST(KeySort, LeavesEqualKeysAndNothingAsTheyAre) {
  Expect_As_A_Stable_Sort({7, 7, 7, 7});
  Expect_As_A_Stable_Sort({7});
  Expect_As_A_Stable_Sort({});
}

}  // namespace
}  // namespace sylvomex
