// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "heightmodels/point_in_polygon.h"

namespace sylvomex {

/// Numbers of three points, from 0, counter-clockwise.
using PointTriangle = std::array<std::int32_t, 3>;

/// The Delaunay triangulation of points in the plane (Delaunay, B., 1934: Sur la sphère vide), with
/// exact predicates. Of points at one place the first counts. Points on one line have no triangles.
std::vector<PointTriangle> Delaunay_Triangles(std::span<const MapPoint> points);

}  // namespace sylvomex
