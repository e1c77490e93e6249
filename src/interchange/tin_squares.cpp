// SPDX-License-Identifier: MIT
#include "interchange/tin_squares.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sylvomex {
namespace {

constexpr double kSide = 100;  // metres

using Corners = std::array<MapPoint, 3>;

/// The squares that an interval touches along an axis, the border of a square included.
std::pair<std::int32_t, std::int32_t> Touched(double low, double high) {
  return {std::max(0, static_cast<std::int32_t>(std::ceil(low / kSide)) - 1),
          static_cast<std::int32_t>(std::floor(high / kSide))};
}

/// Whether a square lies wholly to the right of an edge of a counter-clockwise triangle.
bool Right_Of(const MapPoint& a, const MapPoint& b, double X, double Y) {
  const double dx = b.X - a.X;
  const double dy = b.Y - a.Y;
  // Of the square's corners the one that lies farthest to the left of the edge decides.
  const double far_X = dy > 0 ? X : X + kSide;
  const double far_Y = dx > 0 ? Y + kSide : Y;
  return dx * (far_Y - a.Y) - dy * (far_X - a.X) < 0;
}

bool Touches(const Corners& corners, double X, double Y) {
  return !Right_Of(corners[0], corners[1], X, Y) && !Right_Of(corners[1], corners[2], X, Y) &&
         !Right_Of(corners[2], corners[0], X, Y);
}

Corners Corners_Of(std::span<const TinNode> nodes, const PointTriangle& triangle,
                   const MapPoint& corner) {
  Corners corners;
  for (std::size_t i = 0; i < 3; ++i) {
    const TinNode& node = nodes[static_cast<std::size_t>(triangle[i])];
    corners[i] = {node.X - corner.X, node.Y - corner.Y};
  }
  return corners;
}

}  // namespace

std::map<SquareKey, std::vector<std::int32_t>> Triangles_Of_Squares(
    std::span<const TinNode> nodes, std::span<const PointTriangle> triangles,
    const MapPoint& corner) {
  std::map<SquareKey, std::vector<std::int32_t>> squares;
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    const Corners c = Corners_Of(nodes, triangles[i], corner);
    const auto [west, east] =
        Touched(std::min({c[0].X, c[1].X, c[2].X}), std::max({c[0].X, c[1].X, c[2].X}));
    const auto [south, north] =
        Touched(std::min({c[0].Y, c[1].Y, c[2].Y}), std::max({c[0].Y, c[1].Y, c[2].Y}));
    for (std::int32_t col = west; col <= east; ++col) {
      for (std::int32_t row = south; row <= north; ++row) {
        if (Touches(c, kSide * col, kSide * row)) {
          squares[{col, row}].push_back(static_cast<std::int32_t>(i + 1));
        }
      }
    }
  }
  return squares;
}

}  // namespace sylvomex
