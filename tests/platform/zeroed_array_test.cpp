// SPDX-License-Identifier: MIT
#include "platform/zeroed_array.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <utility>

namespace sylvomex {
namespace {

TEST(ZeroedArray, IsZeroAtFirst) {
  const ZeroedArray<float> cells(1000);
  EXPECT_EQ(cells.size(), 1000U);
  for (std::size_t i = 0; i < cells.size(); ++i) ASSERT_EQ(cells[i], 0);
}

TEST(ZeroedArray, OfNoCellsIsEmpty) {
  EXPECT_TRUE(ZeroedArray<float>().empty());
  EXPECT_TRUE(ZeroedArray<float>(0).empty());
  EXPECT_TRUE(ZeroedArray<float>(0).All().empty());
}

TEST(ZeroedArray, MovesLeaveTheSourceEmpty) {
  ZeroedArray<float> first(3);
  first[2] = 7;
  ZeroedArray<float> second(std::move(first));
  EXPECT_TRUE(first.empty());
  EXPECT_EQ(second[2], 7);
  ZeroedArray<float> third(10);
  third = std::move(second);
  EXPECT_TRUE(second.empty());
  EXPECT_EQ(third.size(), 3U);
  EXPECT_EQ(third[2], 7);
}

TEST(ZeroedArray, KeepsEveryEntryOfAnArrayOfSeveralHugePages) {
  ZeroedArray<double> numbers(700001);
  EXPECT_EQ(numbers[700000], 0);
  for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = static_cast<double>(i);
  for (std::size_t i = 0; i < numbers.size(); ++i) ASSERT_EQ(numbers[i], static_cast<double>(i));
}

TEST(ZeroedArray, MoreThanTheMachineCanReserveIsBadAlloc) {
  EXPECT_THROW(ZeroedArray<float>(std::numeric_limits<std::size_t>::max() / 8), std::bad_alloc);
  EXPECT_THROW(ZeroedArray<float>(std::numeric_limits<std::size_t>::max() / 2), std::bad_alloc);
  EXPECT_THROW(ZeroedArray<char>(std::numeric_limits<std::size_t>::max()), std::bad_alloc);
}

}  // namespace
}  // namespace sylvomex
