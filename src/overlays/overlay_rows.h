// SPDX-License-Identifier: MIT
// The rows of the text files that overlays are drawn from, read as lists. Every reader takes
// the next row and throws the RunTimeErrors of the list reader, RunTimeError(InputPastEnd) for a
// truncated row.
#pragma once

#include <cstdint>
#include <string>

#include "platform/list_reader.h"
#include "platform/point3d.h"

namespace sylvomex {

/// Identifier (ignored), X1, Y1, X2, Y2; metres.
struct GroundSegment {
  double X1 = 0, Y1 = 0;
  double X2 = 0, Y2 = 0;
};
GroundSegment Read_Ground_Segment(ListReader& file);

/// X, Y, two items not used here, height, tree number, flag.
struct MeasuredTree {
  double X = 0, Y = 0;  // metres
  double height = 0;    // above ground, metres
  std::string number;
  std::int32_t flag = 0;  // 1: draw it
};
MeasuredTree Read_Measured_Tree(ListReader& file);

/// Identifier (ignored), X, Y, mark size, four numbers not used here. A size whose width exceeds 16
/// bits is a RunTimeError(Overflow) naming file, line and item.
struct CrownPoint {
  double X = 0, Y = 0;  // metres
  int width = 1;        // of the mark, pixels: its size plus one, at least 1
};
CrownPoint Read_Crown_Point(ListReader& file);

/// ImageId, point id, column, row of the full image from the top.
struct TiePoint {
  std::int32_t image_id = 0;
  std::int32_t point_id = 0;
  double col = 0;
  double top_down_row = 0;
};
TiePoint Read_Tie_Point(ListReader& file);

/// X, Y, Z of a polyline's vertex, metres.
Point3D Read_Ground_Vertex(ListReader& file);

}  // namespace sylvomex
