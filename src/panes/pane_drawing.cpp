// SPDX-License-Identifier: MIT
#include "panes/pane_drawing.h"

#include "state/camera_access.h"

namespace sylvomex {

PanePosition Pane_Of_Pixel(const Workspace& w, int image, double col, double row) {
  if (w.ImageKinds(image) == 2) {
    return Full_Image_To_Correlation_Pane(w.CorrelationRecords(image),
                                          w.CorrelationPaneViews(image), col, row);
  }
  return Full_Image_To_Pane(w.ImageBlock(image), w.PaneViews(image), col, row);
}

PanePosition Pane_Of_Point(const Workspace& w, int image, double X, double Y, double Z) {
  double col = 0;
  double row = 0;
  Object_To_Pixel(w, image, X, Y, Z, col, row);
  return Pane_Of_Pixel(w, image, col, row);
}

PanePosition Overlay_Of_Pixel(const Workspace& w, int image, double col, double row) {
  const PanePosition at = Pane_Of_Pixel(w, image, col, row);
  return {at.px - 1, at.py - 1};
}

PanePosition Overlay_Of_Point(const Workspace& w, int image, double X, double Y, double Z) {
  const PanePosition at = Pane_Of_Point(w, image, X, Y, Z);
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
