// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "heightmodels/tin_record.h"
#include "interchange/delaunay.h"

namespace sylvomex {

/// Column and row of a square of 100 m, counted from the tile corner of a model.
using SquareKey = std::pair<std::int32_t, std::int32_t>;

/// For each square the numbers, from 1, of the triangles that touch it, its border included.
/// corner: the lowest X and Y of the nodes, each rounded down to a multiple of 100 m.
std::map<SquareKey, std::vector<std::int32_t>> Triangles_Of_Squares(
    std::span<const TinNode> nodes, std::span<const PointTriangle> triangles,
    const MapPoint& corner);

}  // namespace sylvomex
