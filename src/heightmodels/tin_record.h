// SPDX-License-Identifier: MIT
// Nodes and triangles of a triangulated height model. X east, Y north, Z up, metres.
#pragma once

#include <array>
#include <cstdint>

#include "heightmodels/point_in_polygon.h"

namespace sylvomex {

struct TinNode {
  std::int32_t NodeId = 0;  // not used
  double X = 0, Y = 0, Z = 0;
};

/// The alignment keeps plane and box, all that a height needs, in one cache line.
struct alignas(64) TinTriangle {
  std::int32_t Node1 = 0, Node2 = 0, Node3 = 0;  // entries of the node table, from 0
  double X1 = 0, Y1 = 0, Z1 = 0;
  double X2 = 0, Y2 = 0, Z2 = 0;
  double X3 = 0, Y3 = 0, Z3 = 0;
  std::array<MapPoint, 3> Corners;
  double PlaneA = 0, PlaneB = 0, PlaneC = 0;  // see Height_In_Triangle
  double MinX = 0, MinY = 0, MaxX = 0, MaxY = 0;
};

inline bool Holds(const TinTriangle& triangle, double X, double Y) {
  return Point_In_Polygon(triangle.Corners, {X, Y});
}

/// Height of the triangle's plane, given in the frame whose origin is the south-west corner of
/// its box: PlaneA x + PlaneB y + PlaneC Z = 1 with x = MinX - X, y = MinY - Y.
inline double Height_In_Triangle(const TinTriangle& t, double X, double Y) {
  return (1 - (t.MinX - X) * t.PlaneA - (t.MinY - Y) * t.PlaneB) / t.PlaneC;
}

}  // namespace sylvomex
