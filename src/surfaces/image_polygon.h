// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "heightmodels/point_in_polygon.h"
#include "platform/drive_map.h"

namespace sylvomex {

inline constexpr std::size_t kMostPolygonVertices = 101;

/// The vertices of a polygon file: film x and y (metres) of the fixed image, one a line, as X and
/// Y of the polygon test. RunTimeError(SubscriptOutOfRange) naming file and line for a vertex
/// beyond kMostPolygonVertices, those of the list reader for what is no number.
std::vector<MapPoint> Read_Image_Polygon(const FilePath& file);

}  // namespace sylvomex
