// SPDX-License-Identifier: MIT
#include "panes/overlay_points.h"

#include "state/workspace.h"

#include "closedlib/long_tasks.h"
#include "panes/pane_drawing.h"
#include "platform/many_steps.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

void Plot_On_Pane(Workspace& w, int image, std::span<const OverlayPoint> points) {
  Picture& pane = w.Form1.Picture1(image);
  pane.marks.reserve(pane.marks.size() + points.size());
  const Camera camera = Camera_Of(w, image);
  ManySteps steps(static_cast<double>(points.size()));
  for (const OverlayPoint& point : points) {
    steps.Step();
    const PanePosition at = Overlay_Of_Pixel(w, image, Object_To_Pixel(camera, point.at));
    Plot_Point(pane, at.px, at.py, point.colour);
  }
}

}  // namespace

void Plot_Overlay_Points(Workspace& w, std::span<const OverlayPoint> points) {
  Run_Long_Tasks(w.ImageCount, [&](int image) { Plot_On_Pane(w, image, points); });
}

}  // namespace sylvomex
