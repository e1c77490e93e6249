// SPDX-License-Identifier: MIT
// A fast search for the triangle at a point. It answers only where exactly one triangle can hold
// the point.
//
// It walks from a triangle near the point across the edges that the point lies beyond
// (Lawson 1977, "Software for C1 surface interpolation"; Devillers, Pion and Teillaud 2002,
// "Walking in a triangulation"). Distances are computed in single precision: points that are too
// close to an edge for that precision, points outside, and points where triangles overlap or
// leave gaps are left to the buckets.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "heightmodels/tin_record.h"
#include "platform/huge_pages.h"

namespace sylvomex {

/// Distances from the three edges, positive inside, in lengths of the longest edge:
/// A x + B y + C with x, y from the face's origin.
struct alignas(64) TinFace {
  float A[3] = {}, B[3] = {}, C[3] = {kFarInside, kFarInside, kFarInside};
  float origin[2] = {};         // metres east and north of the grid's corner
  std::int32_t beyond[4] = {};  // number of the triangle beyond each edge, 0: none; then its own

  static constexpr float kFarInside = 1e30F;
};
static_assert(sizeof(TinFace) == 64, "one cache line a step");

struct TinFaces {
  double west = 0, south = 0;
  double cells_per_metre = 0;
  double columns = 0, rows = 0;  // integers; 0: no certain answers
  // For each cell the number of a triangle near its centre; 0 where triangles overlap or leave
  // gaps, and in one more entry after the last cell.
  HugePageVector<std::int32_t> starts;
  HugePageVector<TinFace> faces;  // by number; entry 0 is a sentinel that holds every point
};

inline constexpr float kClearOfEdge = 1e-5F;  // in lengths of the longest edge

/// node_count: size of the table that the triangles' nodes are entries of.
TinFaces Make_Tin_Faces(std::span<const TinTriangle> triangles, std::int32_t node_count);

/// The cell of a point; -1 outside the grid, for NaN and for infinity.
inline std::int64_t Start_Cell(const TinFaces& f, double X, double Y) {
  const double column = (X - f.west) * f.cells_per_metre;
  const double row = (Y - f.south) * f.cells_per_metre;
  if (!(column >= 0 && row >= 0 && column < f.columns && row < f.rows)) return -1;
  return static_cast<std::int64_t>(row) * static_cast<std::int64_t>(f.columns) +
         static_cast<std::int64_t>(column);
}

/// The number of the one triangle that holds the point, 0 where that is not certain. start: a
/// value of starts for the point's own cell.
inline std::int32_t Walk_To_Holder(const TinFaces& f, std::int32_t start, double X, double Y) {
  constexpr int kMostSteps = 100;
  std::int32_t number = start;
  for (int step = 0; step < kMostSteps && number > 0; ++step) {
    const TinFace& face = f.faces[static_cast<std::size_t>(number)];
    const auto x = static_cast<float>(X - f.west - face.origin[0]);
    const auto y = static_cast<float>(Y - f.south - face.origin[1]);
    const float d0 = face.A[0] * x + face.B[0] * y + face.C[0];
    const float d1 = face.A[1] * x + face.B[1] * y + face.C[1];
    const float d2 = face.A[2] * x + face.B[2] * y + face.C[2];
    const float nearest = std::min({d0, d1, d2});
    if (nearest > kClearOfEdge) return number;
    if (nearest > -kClearOfEdge) return 0;
    number = face.beyond[nearest == d0 ? 0 : nearest == d1 ? 1 : 2];
  }
  return 0;
}

/// The same from the point alone.
inline std::int32_t Certain_Holder(const TinFaces& f, double X, double Y) {
  const std::int64_t cell = Start_Cell(f, X, Y);
  return cell < 0 ? 0 : Walk_To_Holder(f, f.starts[static_cast<std::size_t>(cell)], X, Y);
}

}  // namespace sylvomex
