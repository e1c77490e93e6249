// SPDX-License-Identifier: MIT
#include "panes/pane_drawing.h"

#include "state/workspace.h"

#include "state/camera_access.h"

namespace sylvomex {

PanePosition Pane_Of_Pixel(const Workspace& w, int image, const PixelPosition& pixel) {
  if (w.ImageKinds(image) == 2) {
    return Full_Image_To_Correlation_Pane(w.CorrelationRecords(image),
                                          w.CorrelationPaneViews(image), pixel.col, pixel.row);
  }
  return Full_Image_To_Pane(w.ImageBlock(image), w.PaneViews(image), pixel.col, pixel.row);
}

PanePosition Pane_Of_Point(const Workspace& w, int image, const Point3D& point) {
  return Pane_Of_Pixel(w, image, Object_To_Pixel(w, image, point));
}

PanePosition Overlay_Of_Pixel(const Workspace& w, int image, const PixelPosition& pixel) {
  const PanePosition at = Pane_Of_Pixel(w, image, pixel);
  return {at.px - 1, at.py - 1};
}

PanePosition Overlay_Of_Point(const Workspace& w, int image, const Point3D& point) {
  const PanePosition at = Pane_Of_Point(w, image, point);
  return {at.px - 1, at.py - 1};
}

PixelPosition Pixel_Of_Pane(const Workspace& w, int image, double px, double py) {
  if (w.ImageKinds(image) == 2) {
    return Correlation_Pane_To_Full_Image(w.CorrelationRecords(image),
                                          w.CorrelationPaneViews(image), px, py);
  }
  return Pane_To_Full_Image(w.ImageBlock(image), w.PaneViews(image), px, py);
}

}  // namespace sylvomex
