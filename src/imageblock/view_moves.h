// SPDX-License-Identifier: MIT
// Views that the hand moves: dragged over the raw file, zoomed about a point of the pane.
#pragma once

#include <optional>

#include "imageblock/pane_view.h"
#include "imageblock/view_window.h"

namespace sylvomex {

/// What a view looks into and through.
struct ViewFrame {
  double sub_width = 0;  // raw file, pixels
  double sub_height = 0;
  int pane_width = 0;  // pane pixels
  int pane_height = 0;
};

/// The zoom some steps further in (positive) or out (negative) on the scale ... 1/3, 1/2, 1, 2, 3
/// ... 16. A zoom between two steps counts as the nearer one. Zooming out ends at the last step
/// whose view lies inside the raw file in both axes; a pane that shows more than that already is
/// not zoomed out further. 0 for the zoom 0 of a pane without an image.
double Stepped_Zoom(double zoom, int steps, const ViewFrame& frame);

/// The view after the picture was dragged by dx, dy pane pixels, to the nearest raw pixel. It stays
/// inside the raw file; along an axis on which the raw file is smaller than the view it starts at
/// the first pixel.
PaneView Dragged_View(const PaneView& view, const ViewFrame& frame, double dx, double dy);

/// The view at another zoom that keeps the raw position at px, py of the pane, to the nearest raw
/// pixel and as far as it stays inside the raw file.
PaneView Zoomed_View(const PaneView& view, const ViewFrame& frame, double zoom, double px,
                     double py);

/// The raw pixels that such a view shows.
ViewWindow Window_Of_View(const PaneView& view, const ViewFrame& frame);

}  // namespace sylvomex
