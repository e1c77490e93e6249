// SPDX-License-Identifier: MIT
#include "overlays/overlay_rows.h"

namespace sylvomex {
namespace {

// The text that opens a row: a number, a name, or nothing before the comma. Empty lines between the
// rows are passed over.
void Pass_Over_Identifier(ListReader& file) {
  file.Skip_Empty_Lines();
  file.Read_Text();
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
  point.size = file.Read_Double();
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

GroundVertex Read_Ground_Vertex(ListReader& file) {
  GroundVertex vertex;
  vertex.X = file.Read_Double();
  vertex.Y = file.Read_Double();
  vertex.Z = file.Read_Double();
  return vertex;
}

}  // namespace sylvomex
