// SPDX-License-Identifier: MIT
#include "interchange/delaunay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "interchange/tin_squares.h"

namespace sylvomex {
namespace {

/// Whether d lies within the circle of the counter-clockwise triangle a, b, c: the sign of the
/// determinant of the lifted points.
double In_Circle(const MapPoint& a, const MapPoint& b, const MapPoint& c, const MapPoint& d) {
  const double ax = a.X - d.X, ay = a.Y - d.Y, bx = b.X - d.X, by = b.Y - d.Y, cx = c.X - d.X,
               cy = c.Y - d.Y;
  return (ax * ax + ay * ay) * (bx * cy - cx * by) - (bx * bx + by * by) * (ax * cy - cx * ay) +
         (cx * cx + cy * cy) * (ax * by - bx * ay);
}

double Twice_Area(const MapPoint& a, const MapPoint& b, const MapPoint& c) {
  return (b.X - a.X) * (c.Y - a.Y) - (c.X - a.X) * (b.Y - a.Y);
}

std::vector<MapPoint> Random_Points(int count) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 350);
  std::vector<MapPoint> points;
  for (int i = 0; i < count; ++i) points.push_back({place(random), place(random)});
  return points;
}

TEST(Delaunay, NoPointLiesInTheCircleOfATriangle) {
  const std::vector<MapPoint> points = Random_Points(120);
  const auto at = [&](std::int32_t i) { return points[static_cast<std::size_t>(i)]; };
  double area = 0;
  for (const PointTriangle& t : Delaunay_Triangles(points)) {
    EXPECT_GT(Twice_Area(at(t[0]), at(t[1]), at(t[2])), 0);
    area += Twice_Area(at(t[0]), at(t[1]), at(t[2])) / 2;
    for (std::int32_t i = 0; i < 120; ++i) {
      if (std::find(t.begin(), t.end(), i) != t.end()) continue;
      EXPECT_LE(In_Circle(at(t[0]), at(t[1]), at(t[2]), at(i)), 0);
    }
  }
  EXPECT_GT(area, 0.8 * 350 * 350);
}

TEST(Delaunay, ASquareIsTwoTriangles) {
  const std::vector<MapPoint> square = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  EXPECT_EQ(Delaunay_Triangles(square).size(), 2U);
}

TEST(Delaunay, OfPointsAtOnePlaceTheFirstCounts) {
  const std::vector<MapPoint> points = {{0, 0}, {0, 0}, {1, 0}, {0, 1}, {1, 0}};
  const auto triangles = Delaunay_Triangles(points);
  ASSERT_EQ(triangles.size(), 1U);
  PointTriangle corners = triangles.front();
  std::sort(corners.begin(), corners.end());
  EXPECT_EQ(corners, (PointTriangle{0, 2, 3}));
}

TEST(Delaunay, PointsOnOneLineAndNoPointsHaveNoTriangles) {
  EXPECT_TRUE(Delaunay_Triangles(std::vector<MapPoint>{{0, 0}, {1, 1}, {2, 2}}).empty());
  EXPECT_TRUE(Delaunay_Triangles({}).empty());
}

/// Whether two convex polygons touch: no line along a side of one parts them.
bool Touch(const std::vector<MapPoint>& a, const std::vector<MapPoint>& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    const MapPoint& p = a[i];
    const MapPoint& q = a[(i + 1) % a.size()];
    if (std::all_of(b.begin(), b.end(),
                    [&](const MapPoint& r) { return Twice_Area(p, q, r) < 0; })) {
      return false;
    }
  }
  return true;
}

TEST(TinSquares, HoldEveryTriangleThatTouchesThem) {
  const std::vector<MapPoint> points = Random_Points(60);
  std::vector<TinNode> nodes;
  for (const MapPoint& point : points) nodes.push_back({0, point.X, point.Y, 1});
  const auto triangles = Delaunay_Triangles(points);
  const auto squares = Triangles_Of_Squares(nodes, triangles, {0, 0});
  for (int col = 0; col < 5; ++col) {
    for (int row = 0; row < 5; ++row) {
      const std::vector<MapPoint> square = {{100.0 * col, 100.0 * row},
                                            {100.0 * col + 100, 100.0 * row},
                                            {100.0 * col + 100, 100.0 * row + 100},
                                            {100.0 * col, 100.0 * row + 100}};
      std::vector<std::int32_t> expected;
      for (std::size_t i = 0; i < triangles.size(); ++i) {
        std::vector<MapPoint> corners;
        for (const std::int32_t node : triangles[i]) {
          corners.push_back(points[static_cast<std::size_t>(node)]);
        }
        if (Touch(corners, square) && Touch(square, corners)) {
          expected.push_back(static_cast<std::int32_t>(i + 1));
        }
      }
      const auto found = squares.find({col, row});
      EXPECT_EQ(found == squares.end() ? std::vector<std::int32_t>{} : found->second, expected)
          << col << " " << row;
    }
  }
}

TEST(TinSquares, ABorderBelongsToBothSquares) {
  const std::vector<TinNode> nodes = {{0, 100, 10, 1}, {0, 150, 10, 1}, {0, 100, 50, 1}};
  const auto squares = Triangles_Of_Squares(nodes, std::vector<PointTriangle>{{0, 1, 2}}, {0, 0});
  EXPECT_EQ(squares.size(), 2U);
  EXPECT_EQ(squares.count({0, 0}), 1U);
  EXPECT_EQ(squares.count({1, 0}), 1U);
}

}  // namespace
}  // namespace sylvomex
