// SPDX-License-Identifier: MIT
// Small triangulated models, and the linear searches that define the lookups.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "heightmodels/tin_lookup.h"

namespace sylvomex {

using NodeTriple = std::array<std::int32_t, 3>;

/// A model of triangles that all have a plane.
inline TinModel Tin_Of(const std::vector<TinNode>& nodes, const std::vector<NodeTriple>& triples) {
  TinModel model;
  model.Nodes = nodes;
  model.NodeCount = static_cast<std::int32_t>(nodes.size());
  for (const NodeTriple& n : triples) {
    TinTriangle t;
    t.Node1 = n[0];
    t.Node2 = n[1];
    t.Node3 = n[2];
    const auto node = [&](std::size_t k) { return nodes[static_cast<std::size_t>(n[k])]; };
    if (Fill_Tin_Triangle(node(0), node(1), node(2), t)) model.Triangles.push_back(t);
  }
  model.TriangleCount = static_cast<std::int32_t>(model.Triangles.size());
  Index_Tin(model, {});
  return model;
}

inline std::int32_t First_By_Plain_Walk(const TinModel& model, double X, double Y) {
  std::int32_t position = 0;
  for (const std::int32_t number : model.Index) {
    ++position;
    const TinTriangle& t = model.Triangles[static_cast<std::size_t>(number - 1)];
    if (Point_In_Polygon(t.Corners, {X, Y})) return position;
  }
  return 0;
}

inline std::int32_t Lowest_By_Plain_Walk(const TinModel& model, double X, double Y) {
  std::int32_t number = 0;
  for (const TinTriangle& t : model.Triangles) {
    ++number;
    if (Point_In_Polygon(t.Corners, {X, Y})) return number;
  }
  return 0;
}

/// The square (0, 0) to (10, 10) in two triangles, all heights on Z = 100 + X: number 1 lies
/// south-east of the diagonal, number 2 north-west of it. Shifted 1000 m east, so that no box warns
/// of small coordinates.
inline TinModel Two_Triangles() {
  return Tin_Of({{0, 1000, 0, 100}, {0, 1010, 0, 110}, {0, 1010, 10, 110}, {0, 1000, 10, 100}},
                {{0, 1, 2}, {0, 2, 3}});
}

}  // namespace sylvomex
