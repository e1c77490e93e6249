// SPDX-License-Identifier: MIT
#include "heightmodels/cell_array.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <utility>

namespace sylvomex {
namespace {

TEST(CellArray, IsZeroAtFirst) {
  const CellArray cells(1000);
  EXPECT_EQ(cells.size(), 1000U);
  for (std::size_t i = 0; i < cells.size(); ++i) ASSERT_EQ(cells[i], 0);
}

TEST(CellArray, OfNoCellsIsEmpty) {
  EXPECT_TRUE(CellArray().empty());
  EXPECT_TRUE(CellArray(0).empty());
  EXPECT_TRUE(CellArray(0).All().empty());
}

TEST(CellArray, MovesLeaveTheSourceEmpty) {
  CellArray first(3);
  first[2] = 7;
  CellArray second(std::move(first));
  EXPECT_TRUE(first.empty());
  EXPECT_EQ(second[2], 7);
  CellArray third(10);
  third = std::move(second);
  EXPECT_TRUE(second.empty());
  EXPECT_EQ(third.size(), 3U);
  EXPECT_EQ(third[2], 7);
}

TEST(CellArray, MoreThanTheMachineCanPromiseIsBadAlloc) {
  EXPECT_THROW(CellArray(std::numeric_limits<std::size_t>::max() / 8), std::bad_alloc);
}

}  // namespace
}  // namespace sylvomex
