// SPDX-License-Identifier: MIT
#include "panes/pane_moves.h"

#include <memory>
#include <optional>
#include <utility>

#include "imageblock/bitmap_file.h"
#include "panes/carried_marks.h"
#include "panes/pane_drawing.h"
#include "panes/pane_rendering.h"
#include "panes/shown_raster.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

using Bitmap = std::shared_ptr<const PaneBitmap>;

RenderRequest Request_Of(const PaneView& view, const ViewFrame& frame) {
  RenderRequest request;
  request.window = Window_Of_View(view, frame);
  request.zoom_x = view.ZoomX;
  request.zoom_y = view.ZoomY;
  request.pane_width = frame.pane_width;
  request.pane_height = frame.pane_height;
  return request;
}

Bitmap Rendered_View(Workspace& w, int image, const PaneView& view) {
  PaneBitmap shown = Render_Shown(w, image, Request_Of(view, Shown_Frame(w, image)));
  if (!Shows_Correlation(w, image)) Write_Pane_Bitmap(Scratch_Bitmap(w, image), shown);
  return std::make_shared<const PaneBitmap>(std::move(shown));
}

bool Same_View(const PaneView& a, const PaneView& b) {
  return a.ViewCol == b.ViewCol && a.ViewRow == b.ViewRow && a.ZoomX == b.ZoomX &&
         a.ZoomY == b.ZoomY;
}

void Show_View(Workspace& w, int image, const PaneView& after) {
  PaneView& view = Shown_View(w, image);
  const PaneView before = view;
  if (Same_View(before, after)) return;
  Bitmap bitmap = Rendered_View(w, image, after);
  view = after;
  Load_Other_View(w.Form1.Picture1(image), std::move(bitmap), before, after);
}

double Plane_Height(const Workspace& w) { return w.SolutionValid ? w.Solution3D.Z : w.PanCenter.Z; }

PanePosition Centre_Of_Pane(const Workspace& w) { return {w.PaneWidth / 2.0, w.PaneHeight / 2.0}; }

/// The object point under a pane position; std::nullopt where the plane is not before the camera.
std::optional<Point3D> Point_Under(const Workspace& w, int image, const PanePosition& at) {
  const Camera camera = Camera_Of(w, image);
  const FilmPosition film = Pixel_To_Image(camera, Pixel_Of_Pane(w, image, at.px, at.py));
  const auto point = Image_To_Object_At_Z(camera, Plane_Height(w), film);
  if (!point || !(To_Camera_Axes(camera, *point).q < 0)) return std::nullopt;
  return point;
}

void Zoom_About(Workspace& w, int image, const PanePosition& at, int steps) {
  const PaneView view = Shown_View(w, image);
  const ViewFrame frame = Shown_Frame(w, image);
  const double zoom = Stepped_Zoom(view.ZoomX, steps, frame);
  if (zoom != view.ZoomX) Show_View(w, image, Zoomed_View(view, frame, zoom, at.px, at.py));
}

/// Where a pane shows a point, if it does; else its centre.
PanePosition Shown_Or_Centre(const Workspace& w, int image, const std::optional<Point3D>& point) {
  if (!point || !(To_Camera_Axes(Camera_Of(w, image), *point).q < 0)) return Centre_Of_Pane(w);
  const PanePosition at = Pane_Of_Point(w, image, *point);
  const bool inside = at.px >= 0 && at.py >= 0 && at.px < w.PaneWidth && at.py < w.PaneHeight;
  return inside ? at : Centre_Of_Pane(w);
}

void Drag(Workspace& w, int image, double dx, double dy) {
  Show_View(w, image, Dragged_View(Shown_View(w, image), Shown_Frame(w, image), dx, dy));
}

/// Moves the view of a pane by a distance on the plane.
void Follow(Workspace& w, int image, double east, double north) {
  const PanePosition centre = Centre_Of_Pane(w);
  const auto before = Point_Under(w, image, centre);
  if (!before) return;
  const PanePosition to = Pane_Of_Point(w, image, {before->X + east, before->Y + north, before->Z});
  Drag(w, image, centre.px - to.px, centre.py - to.py);
}

}  // namespace

void Zoom_Pane_About(Workspace& w, int image, double px, double py, int steps) {
  if (Shows_Image(w, image)) Zoom_About(w, image, {px, py}, steps);
}

void Zoom_All_Panes_About(Workspace& w, int image, double px, double py, int steps) {
  if (!Shows_Image(w, image)) return;
  const auto point = Point_Under(w, image, {px, py});
  for (int k = 0; k < w.ImageCount; ++k) {
    if (!Shows_Image(w, k)) continue;
    Zoom_About(w, k, k == image ? PanePosition{px, py} : Shown_Or_Centre(w, k, point), steps);
  }
}

void Drag_Pane(Workspace& w, int image, double dx, double dy) {
  if (Shows_Image(w, image)) Drag(w, image, dx, dy);
}

void Drag_All_Panes(Workspace& w, int image, double dx, double dy) {
  if (!Shows_Image(w, image)) return;
  const auto from = Point_Under(w, image, Centre_Of_Pane(w));
  Drag(w, image, dx, dy);
  const auto to = Point_Under(w, image, Centre_Of_Pane(w));
  if (!from || !to) return;
  for (int k = 0; k < w.ImageCount; ++k) {
    if (k != image && Shows_Image(w, k)) Follow(w, k, to->X - from->X, to->Y - from->Y);
  }
}

}  // namespace sylvomex
