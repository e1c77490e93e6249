// SPDX-License-Identifier: MIT
#include "region/seams.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

OwnCell Tile(double west, double south, double east, double north) {
  OwnCell cell;
  cell.tile = MapExtent{west, south, east, north};
  return cell;
}

FoundTop Top(std::size_t task, int number, double X, double Y, double score, bool is_own) {
  return {{X, Y, 0}, score, 5, number, task, is_own};
}

TEST(OwnCells, ATileHoldsItsWestAndSouthSidesAlone) {
  const OwnCell tile = Tile(0, 0, 10, 10);
  EXPECT_TRUE(Lies_In(tile, 0, 0));
  EXPECT_FALSE(Lies_In(tile, 10, 5));
  EXPECT_FALSE(Lies_In(tile, 5, 10));
  EXPECT_TRUE(Lies_In(Tile(10, 0, 20, 10), 10, 5));
}

TEST(OwnCells, ACircleHoldsItsRim) {
  const OwnCell circle{std::nullopt, 3, 4, 5};
  EXPECT_TRUE(Lies_In(circle, 0, 0));
  EXPECT_FALSE(Lies_In(circle, -0.01, 0));
  EXPECT_TRUE(Lies_Near(circle, -0.01, 0, 1));
  EXPECT_FALSE(Lies_Near(circle, 10, 4, 2));
}

TEST(OwnCells, NearnessToATileIsTheDistanceToItsNearestPoint) {
  const OwnCell tile = Tile(0, 0, 10, 10);
  EXPECT_TRUE(Lies_Near(tile, 10.5, 5, 1));
  EXPECT_FALSE(Lies_Near(tile, 10.8, 10.8, 1));  // hypot(0.8, 0.8) is above 1
}

TEST(Seams, TopsFarApartAllStay) {
  EXPECT_EQ(One_Top_A_Tree({Top(0, 1, 0, 0, 1.5, true), Top(1, 1, 5, 0, 1.4, true)}, 2).size(), 2U);
}

TEST(Seams, OfATreeFoundFromBothSidesTheBetterScoreStays) {
  const auto trees =
      One_Top_A_Tree({Top(0, 1, 9.9, 5, 1.4, true), Top(1, 1, 10.1, 5, 1.6, true)}, 1.5);
  ASSERT_EQ(trees.size(), 1U);
  EXPECT_EQ(trees[0].task, 1U);
}

TEST(Seams, ATreeThatBothSidesPutBeyondTheSeamIsNotLost) {
  // Task 0 answers for X below 10 and sees it at 10.1, task 1 the other way round.
  const auto trees =
      One_Top_A_Tree({Top(0, 1, 10.1, 5, 1.4, false), Top(1, 1, 9.9, 5, 1.3, false)}, 1.5);
  ASSERT_EQ(trees.size(), 1U);
  EXPECT_EQ(trees[0].task, 0U);
}

TEST(Seams, ATopBeyondTheSeamThatTheNeighbourDoesNotFindIsDropped) {
  EXPECT_TRUE(One_Top_A_Tree({Top(0, 1, 10.1, 5, 1.9, false)}, 1.5).empty());
}

TEST(Seams, TwoTopsOfOneTaskAreTwoTreesHoweverNear) {
  EXPECT_EQ(One_Top_A_Tree({Top(0, 1, 0, 0, 1.5, true), Top(0, 2, 0.5, 0, 1.4, true)}, 2).size(),
            2U);
}

TEST(Seams, AtEqualScoresTheEarlierTaskStaysWhateverTheOrder) {
  const FoundTop a = Top(0, 1, 9.9, 5, 1.5, true), b = Top(1, 1, 10.1, 5, 1.5, true);
  EXPECT_EQ(One_Top_A_Tree({a, b}, 1.5).at(0).task, 0U);
  EXPECT_EQ(One_Top_A_Tree({b, a}, 1.5).at(0).task, 0U);
}

TEST(Seams, ExactlyAtTheDistanceAreTwoTrees) {
  EXPECT_EQ(One_Top_A_Tree({Top(0, 1, 0, 0, 1.5, true), Top(1, 1, 1.5, 0, 1.4, true)}, 1.5).size(),
            2U);
}

}  // namespace
}  // namespace sylvomex
