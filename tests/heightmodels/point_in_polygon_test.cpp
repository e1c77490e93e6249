// SPDX-License-Identifier: MIT
#include "heightmodels/point_in_polygon.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace sylvomex {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

const std::vector<MapPoint> kSquare = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};

TEST(PointInPolygon, ASquareContainsItsMiddleAndNothingBeyond) {
  EXPECT_TRUE(Point_In_Polygon(kSquare, {2, 2}));
  for (const MapPoint& p : {MapPoint{-1, 2}, {5, 2}, {2, -1}, {2, 5}}) {
    EXPECT_FALSE(Point_In_Polygon(kSquare, p)) << p.X << " " << p.Y;
  }
}

TEST(PointInPolygon, LowerEdgeIsOutsideAndUpperEdgeInside) {
  EXPECT_FALSE(Point_In_Polygon(kSquare, {2, 0}));
  EXPECT_TRUE(Point_In_Polygon(kSquare, {2, 4}));
}

TEST(PointInPolygon, AVerticalEdgeCountsACrossing) {
  // X 0 lies on the west edge: both vertical edges count. X 4 lies on the east edge: that one
  // counts alone, the west edge does not reach so far.
  EXPECT_FALSE(Point_In_Polygon(kSquare, {0, 2}));
  EXPECT_TRUE(Point_In_Polygon(kSquare, {4, 2}));
}

TEST(PointInPolygon, CountsSharedEdgeOnce) {
  const std::vector<MapPoint> south_east = {{0, 0}, {4, 0}, {4, 4}};
  const std::vector<MapPoint> north_west = {{0, 0}, {4, 4}, {0, 4}};
  for (const double along : {0.5, 1.0, 2.0, 3.75}) {
    const MapPoint p{along, along};
    EXPECT_NE(Point_In_Polygon(south_east, p), Point_In_Polygon(north_west, p)) << along;
  }
}

TEST(PointInPolygon, OrderOfTheVerticesDoesNotMatter) {
  const std::vector<MapPoint> clockwise(kSquare.rbegin(), kSquare.rend());
  for (double X = -1; X <= 5; X += 0.5) {
    for (double Y = -1; Y <= 5; Y += 0.5) {
      EXPECT_EQ(Point_In_Polygon(kSquare, {X, Y}), Point_In_Polygon(clockwise, {X, Y}));
    }
  }
}

TEST(PointInPolygon, ANotchIsOutside) {
  const std::vector<MapPoint> notched = {{0, 0}, {6, 0}, {6, 6}, {3, 2}, {0, 6}};
  EXPECT_FALSE(Point_In_Polygon(notched, {3, 4}));
  EXPECT_TRUE(Point_In_Polygon(notched, {1, 3}));
  EXPECT_TRUE(Point_In_Polygon(notched, {5, 3}));
  EXPECT_TRUE(Point_In_Polygon(notched, {3, 1}));
}

TEST(PointInPolygon, NoVerticesALineAndNaNContainNothing) {
  const std::vector<MapPoint> line = {{0, 0}, {4, 4}};
  EXPECT_FALSE(Point_In_Polygon({}, {0, 0}));
  EXPECT_FALSE(Point_In_Polygon(line, {2, 2}));
  for (const double none : {kNoNumber, kInfinity, -kInfinity}) {
    EXPECT_FALSE(Point_In_Polygon(kSquare, {none, 2}));
    EXPECT_FALSE(Point_In_Polygon(kSquare, {2, none}));
  }
}

}  // namespace
}  // namespace sylvomex
