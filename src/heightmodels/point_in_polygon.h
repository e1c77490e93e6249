// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

namespace sylvomex {

/// A position on the map: X east, Y north, metres.
struct MapPoint {
  double X = 0, Y = 0;
};

/// The even-odd crossing rule with half-open edges (Shimrat 1962, Algorithm 112, in the form of
/// Franklin's PNPOLY): an edge reaches from above its lower end up to its upper end. Lower and
/// left edges lie outside, upper and right ones inside, so that a point on a shared edge is in
/// exactly one of two neighbours. Vertices in order, either way round, the last joined to the
/// first; none at all hold no point. NaN and infinity lie outside.
inline bool Point_In_Polygon(std::span<const MapPoint> vertices, const MapPoint& point) {
  const std::size_t n = vertices.size();
  bool inside = false;
  for (std::size_t i = 1; i <= n; ++i) {
    const MapPoint& p1 = vertices[i - 1];
    const MapPoint& p2 = vertices[i == n ? 0 : i];
    const bool crosses = point.Y > std::min(p1.Y, p2.Y) && point.Y <= std::max(p1.Y, p2.Y) &&
                         point.X <= std::max(p1.X, p2.X) && p1.Y != p2.Y;
    if (!crosses) continue;
    const double xi = (point.Y - p1.Y) * (p2.X - p1.X) / (p2.Y - p1.Y) + p1.X;
    if (p1.X == p2.X || point.X <= xi) inside = !inside;
  }
  return inside;
}

}  // namespace sylvomex
