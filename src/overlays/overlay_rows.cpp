// SPDX-License-Identifier: MIT
#include "overlays/overlay_rows.h"

#include <algorithm>

#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

// Skips the identifier that starts a row: a number, a name, or nothing before the comma. Empty
// lines between rows are skipped too.
void Pass_Over_Identifier(ListReader& file) {
  file.Skip_Empty_Lines();
  file.Read_Text();
}

int Mark_Width(double size, const ListReader& file) {
  try {
    return std::max<int>(1, To_Int16(size + 1));
  } catch (const RunTimeError& error) {
    throw error.At(file.Where());
  }
}

}  // namespace

GroundSegment Read_Ground_Segment(ListReader& file) {
  GroundSegment segment;
  Pass_Over_Identifier(file);
  segment.X1 = file.Read_Double();
  segment.Y1 = file.Read_Double();
  segment.X2 = file.Read_Double();
  segment.Y2 = file.Read_Double();
  return segment;
}

MeasuredTree Read_Measured_Tree(ListReader& file) {
  MeasuredTree tree;
  tree.X = file.Read_Double();
  tree.Y = file.Read_Double();
  for (int unused = 0; unused < 2; ++unused) file.Read_Text();
  tree.height = file.Read_Double();
  tree.number = file.Read_Text();
  tree.flag = file.Read_Int32();
  return tree;
}

CrownPoint Read_Crown_Point(ListReader& file) {
  CrownPoint point;
  Pass_Over_Identifier(file);
  point.X = file.Read_Double();
  point.Y = file.Read_Double();
  point.width = Mark_Width(file.Read_Double(), file);
  for (int unused = 0; unused < 4; ++unused) file.Read_Double();
  return point;
}

TiePoint Read_Tie_Point(ListReader& file) {
  TiePoint point;
  point.image_id = file.Read_Int32();
  point.point_id = file.Read_Int32();
  point.col = file.Read_Double();
  point.top_down_row = file.Read_Double();
  return point;
}

Point3D Read_Ground_Vertex(ListReader& file) {
  Point3D vertex;
  vertex.X = file.Read_Double();
  vertex.Y = file.Read_Double();
  vertex.Z = file.Read_Double();
  return vertex;
}

}  // namespace sylvomex
