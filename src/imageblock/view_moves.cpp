// SPDX-License-Identifier: MIT
#include "imageblock/view_moves.h"

#include <algorithm>
#include <limits>

#include "platform/rounding.h"

namespace sylvomex {
namespace {

constexpr int kLargestZoom = 16;

/// Places on the scale of zooms: 0 is 1:1, 1 is 2:1, -1 is 1:2.
int Place_Of_Zoom(double zoom) { return zoom >= 1 ? To_Int32(zoom) - 1 : 1 - To_Int32(1 / zoom); }

double Zoom_At_Place(int place) { return place >= 0 ? place + 1.0 : 1.0 / (1 - place); }

/// Raw pixels along an axis of the pane.
double Extent(int pane_size, double zoom) { return Round_Half_Even(pane_size / zoom); }

bool Fits(double zoom, const ViewFrame& frame) {
  return Extent(frame.pane_width, zoom) <= frame.sub_width &&
         Extent(frame.pane_height, zoom) <= frame.sub_height;
}

std::int16_t Limited_Start(double start, double raw_size, int pane_size, double zoom) {
  const double last = std::min<double>(raw_size - Extent(pane_size, zoom),
                                       std::numeric_limits<std::int16_t>::max());
  return To_Int16(std::clamp(start, 0.0, std::max(last, 0.0)));
}

PaneView Placed_View(const PaneView& view, const ViewFrame& frame, double col, double row) {
  PaneView placed = view;
  placed.ViewCol = Limited_Start(col, frame.sub_width, frame.pane_width, view.ZoomX);
  placed.ViewRow = Limited_Start(row, frame.sub_height, frame.pane_height, view.ZoomY);
  placed.ViewWidth = To_Int16(frame.pane_width);
  placed.ViewHeight = To_Int16(frame.pane_height);
  return placed;
}

int Last_Pixel(int first, int pane_size, double zoom, double raw_size) {
  return To_Int32(std::min(first + Extent(pane_size, zoom), raw_size)) - 1;
}

}  // namespace

double Stepped_Zoom(double zoom, int steps, const ViewFrame& frame) {
  if (zoom <= 0) return 0;
  const int direction = steps < 0 ? -1 : 1;
  int place = Place_Of_Zoom(zoom);
  for (int step = 0; step != std::clamp(steps, -100, 100); step += direction) {
    const double next = Zoom_At_Place(place + direction);
    if (next > kLargestZoom || (direction < 0 && !Fits(next, frame))) break;
    place += direction;
    zoom = next;
  }
  return zoom;
}

PaneView Dragged_View(const PaneView& view, const ViewFrame& frame, double dx, double dy) {
  return Placed_View(view, frame, view.ViewCol - dx / view.ZoomX, view.ViewRow - dy / view.ZoomY);
}

PaneView Zoomed_View(const PaneView& view, const ViewFrame& frame, double zoom, double px,
                     double py) {
  PaneView zoomed = view;
  zoomed.ZoomX = zoomed.ZoomY = zoom;
  return Placed_View(zoomed, frame, view.ViewCol + px / view.ZoomX - px / zoom,
                     view.ViewRow + py / view.ZoomY - py / zoom);
}

ViewWindow Window_Of_View(const PaneView& view, const ViewFrame& frame) {
  return {view.ViewCol, view.ViewRow,
          Last_Pixel(view.ViewCol, frame.pane_width, view.ZoomX, frame.sub_width),
          Last_Pixel(view.ViewRow, frame.pane_height, view.ZoomY, frame.sub_height),
          Fits(view.ZoomX, frame)};
}

}  // namespace sylvomex
