// SPDX-License-Identifier: MIT
// Which triangles meet at an edge.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "heightmodels/tin_faces.h"

namespace sylvomex {

/// A triangle's side: from corner `edge` (0 to 2) to the next one, counter-clockwise.
struct TinSide {
  std::int32_t number = 0;  // of the triangle, from 1
  std::int32_t edge = 0;
};

/// Sides that lie on one edge and do not cancel each other.
struct LooseSides {
  TinSide first;
  std::int32_t times = 0;  // those in the direction of the first one less those against it
};

/// Nodes of a triangle counter-clockwise, from 0; the first one negative: it does not count.
using TurnedNodes = std::array<std::int32_t, 3>;

inline constexpr std::size_t kMostJoinedTriangles = (std::size_t{1} << 29) - 1;

/// Makes the two triangles of each edge that has just two sides, one against the other,
/// neighbours in faces (by number, all neighbours 0 before), and gives what lies on the other
/// edges and does not cancel. nodes: by number less 1, at most kMostJoinedTriangles.
std::vector<LooseSides> Join_Sides(std::span<const TurnedNodes> nodes, std::int32_t node_count,
                                   std::span<TinFace> faces);

}  // namespace sylvomex
