// SPDX-License-Identifier: MIT
#include "workspace/pointer_zoom.h"

#include "panes/pane_zoom.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "services/hourglass.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kZoomedIn = 0.99;  // from here on the zoom changes in integer steps
constexpr double kAboveOne = 1.01;

// Shows the hourglass while zooming; afterwards the pane has the given pointer.
void Zoom_With_Hourglass(Workspace& w, int pane, double zoom_x, double zoom_y,
                         PointerShape afterwards) {
  const HourglassGuard hourglass(w.Form1.Picture1(pane), afterwards);
  w.screen->Service_Events();
  Set_Zoom(w, pane, zoom_x, zoom_y);
}

}  // namespace

void Zoom_In_Click(Workspace& w, int pane) {
  const PaneView view = w.PaneViews(pane);
  if (view.ZoomX >= kZoomedIn) {
    Zoom_With_Hourglass(w, pane, Round_Half_Even(view.ZoomX) + 1, Round_Half_Even(view.ZoomY) + 1,
                        PointerShape::Normal);
  } else {
    const auto next = [](double z) { return 1 / (Raw_Pixels_Per_Pane_Pixel(z) - 1); };
    Zoom_With_Hourglass(w, pane, next(view.ZoomX), next(view.ZoomY), PointerShape::Hourglass);
  }
}

void Zoom_Out_Click(Workspace& w, int pane) {
  const PaneView view = w.PaneViews(pane);
  if (view.ZoomX > kAboveOne) {
    Zoom_With_Hourglass(w, pane, view.ZoomX - 1.0, view.ZoomY - 1.0, PointerShape::Normal);
  } else if (view.ZoomX <= 1.0) {
    const auto next = [](double z) { return 1 / (Raw_Pixels_Per_Pane_Pixel(z) + 1); };
    Zoom_With_Hourglass(w, pane, next(view.ZoomX), next(view.ZoomY), PointerShape::Hourglass);
  }
}

void Pan_Click(Workspace& w, int pane, double px, double py) {
  const PixelPosition at = Pane_To_Full_Image(w.ImageBlock(pane), w.PaneViews(pane), px, py);
  const FilmPosition film = Pixel_To_Image(w, pane, at);
  w.Form1.Text1(2 * pane).Text = Format(film.x, "0.#######");
  w.Form1.Text1(2 * pane + 1).Text = Format(film.y, "0.#######");
  const PaneView view = w.PaneViews(pane);
  Set_Zoom(w, pane, view.ZoomX, view.ZoomY);
}

}  // namespace sylvomex
