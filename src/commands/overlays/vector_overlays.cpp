// SPDX-License-Identifier: MIT
#include "commands/overlays/vector_overlays.h"

#include <optional>

#include "commands/overlays/field_dialogs.h"
#include "overlays/overlay_rows.h"
#include "overlays/plot_geometry.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "services/file_names.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kCrownFile = "d:\\Regression_results.txt";
constexpr double kSegmentZ = 155;  // metres, both ends of every segment
constexpr Colour kPlotColour{120, 255, 0};

void Draw_Segment(Workspace& w, int image, const GroundSegment& segment) {
  const PanePosition from = Overlay_Of_Point(w, image, {segment.X1, segment.Y1, kSegmentZ});
  const PanePosition to = Overlay_Of_Point(w, image, {segment.X2, segment.Y2, kSegmentZ});
  Picture& pane = w.Form1.Picture1(image);
  pane.DrawWidth = 5;
  Draw_Line(pane, from.px, from.py, to.px, to.py, kRed);
  pane.DrawWidth = 1;
  Draw_Line(pane, from.px, from.py, to.px, to.py, kWhite);
}

void Draw_Measured_Tree(Workspace& w, int image, const MeasuredTree& tree, double Z) {
  const PanePosition at = Overlay_Of_Point(w, image, {tree.X, tree.Y, Z});
  Picture& pane = w.Form1.Picture1(image);
  for (const int width : {6, 4}) {
    pane.DrawWidth = width;
    Plot_Point(pane, at.px, at.py, kYellow);
  }
  pane.font = {"Arial", 8, false};
  pane.ForeColor = kWhite;
  pane.DrawWidth = 1;
  if (w.options.IncludeTreeNumbers) Print_Text(pane, tree.number);
}

void Draw_Circle(Workspace& w, int image, const PlanLine& circle, Colour colour) {
  Picture& pane = w.Form1.Picture1(image);
  const auto pane_of = [&w, image](const PlanPosition& vertex) {
    const double ground = Get_Raster_Elevation(w, vertex.X, vertex.Y);
    return Overlay_Of_Point(w, image, {vertex.X, vertex.Y, ground});
  };
  PanePosition from = pane_of(circle.front());
  for (std::size_t i = 1; i < circle.size(); ++i) {
    const PanePosition to = pane_of(circle[i]);
    Draw_Line(pane, from.px, from.py, to.px, to.py, colour);
    from = to;
  }
}

void Draw_Crown_Point(Workspace& w, const CrownPoint& point) {
  const double Z = Get_Raster_Elevation(w, point.X, point.Y);
  const PanePosition at = Overlay_Of_Point(w, 0, {point.X, point.Y, Z});
  Picture& pane = w.Form1.Picture1(0);
  pane.DrawWidth = point.width;
  Plot_Point(pane, at.px, at.py, kYellow);
}

void Draw_Tie_Point(Workspace& w, int image, const TiePoint& point) {
  const double row = (w.ImageBlock(image).FullHeight - 1) - point.top_down_row;
  const PanePosition at = Overlay_Of_Pixel(w, image, {point.col, row});
  Picture& pane = w.Form1.Picture1(image);
  pane.DrawWidth = 3;
  Plot_Point(pane, at.px, at.py, kRed);
  pane.font.size = 12;
  pane.ForeColor = kRed;
  Print_Text(pane, Plain_Text(point.point_id));
}

void Draw_Polyline_Side(Workspace& w, int image, const Point3D& from, const Point3D& to) {
  const PanePosition start = Overlay_Of_Point(w, image, from);
  const PanePosition end = Overlay_Of_Point(w, image, to);
  Picture& pane = w.Form1.Picture1(image);
  pane.DrawWidth = 3;
  Draw_Line(pane, start.px, start.py, end.px, end.py, kYellow);
}

}  // namespace

void Plot_3D_line_segments(Workspace& w) {
  const auto chosen = Ask_Plot_Text_File(w);
  if (!chosen) return;
  ListReader file(*chosen);
  while (!file.At_End()) {
    const GroundSegment segment = Read_Ground_Segment(file);
    for (int k = 0; k < w.ImageCount; ++k) Draw_Segment(w, k, segment);
  }
}

void Plot_Field_measured_tree_data(Workspace& w) {
  const auto chosen = Ask_Plot_Text_File(w);
  if (!chosen) return;
  ListReader file(*chosen);
  while (!file.At_End()) {
    const MeasuredTree tree = Read_Measured_Tree(file);
    if (tree.flag != 1) continue;
    const double Z = Get_Raster_Elevation(w, tree.X, tree.Y) + tree.height;
    for (int k = 0; k < w.ImageCount; ++k) Draw_Measured_Tree(w, k, tree, Z);
  }
}

void Plot_Circular_Plot(Workspace& w) {
  const PlanLine circle = Circular_Plot(w.Plot.X, w.Plot.Y);
  for (int k = 0; k < w.ImageCount; ++k) {
    w.Form1.Picture1(k).DrawWidth = 1;
    Draw_Circle(w, k, circle, kPlotColour);
    Draw_Circle(w, k, circle, kYellow);
  }
}

void Plot_Crown_polygons(Workspace& w) {
  ListReader file(w.Drives.Locate(kCrownFile));
  while (!file.At_End()) {
    const CrownPoint point = Read_Crown_Point(file);
    if (w.ImageCount > 0) Draw_Crown_Point(w, point);
  }
}

void Plot_Tie_Points(Workspace& w) {
  ListReader file(w.Drives.Locate(kTiePointFile));
  while (!file.At_End()) {
    const TiePoint point = Read_Tie_Point(file);
    for (int k = 0; k < w.ImageCount; ++k) {
      if (w.ImageBlock(k).ImageId == point.image_id) Draw_Tie_Point(w, k, point);
    }
  }
}

void Plot_XYZ_Polyline(Workspace& w) {
  const FilePath path = w.Drives.Locate(kGroundPolylineFile);
  if (!File_Exists(path)) return;
  ListReader file(path);
  std::optional<Point3D> from;
  while (!file.At_End()) {
    const Point3D to = Read_Ground_Vertex(file);
    for (int k = 0; from && k < w.ImageCount; ++k) Draw_Polyline_Side(w, k, *from, to);
    from = to;
  }
}

}  // namespace sylvomex
