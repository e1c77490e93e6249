// SPDX-License-Identifier: MIT
#include "desktop_aids/dock_places.h"

#include <QAction>
#include <QTimer>
#include <algorithm>

#include "panes/pane_layout.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr int kNarrowestDock = 380;  // pixels
constexpr int kWidestDock = 760;
constexpr int kStep = 20;
constexpr int kExpectedImages = 6;

}  // namespace

int Room_Beside_Panes(double client_width, double client_height, int image_count, double boxes) {
  const int images = image_count > 0 ? image_count : kExpectedImages;
  const int side = Pane_Side(client_width, client_height, images);
  int room = 0;
  for (int width = kNarrowestDock; width <= kWidestDock; width += kStep) {
    const double rest = client_width - width;
    if (rest < boxes || Pane_Side(rest, client_height, images) < side) break;
    room = width;
  }
  return room;
}

DockPlaces::DockPlaces(const AidedPanes& panes, const std::vector<QDockWidget*>& docks)
    : panes_(panes), docks_(docks) {
  for (QDockWidget* dock : docks) {
    connect(dock, &QDockWidget::dockLocationChanged, this, [this, dock] { placed_.insert(dock); });
    connect(dock->toggleViewAction(), &QAction::toggled, this, [this, dock](bool shown) {
      const bool is_about_to_open = shown && !dock->isVisible();
      if (is_about_to_open && placed_.insert(dock).second) Place(*dock);
    });
  }
}

bool DockPlaces::Is_One_Beside() const {
  const FormWindow& window = panes_.Owner().Shown().Main();
  return std::ranges::any_of(docks_, [&](QDockWidget* dock) {
    return dock->isVisible() && !dock->isFloating() &&
           window.dockWidgetArea(dock) == Qt::RightDockWidgetArea;
  });
}

/// Docks beside the panes stand below each other.
void DockPlaces::Place(QDockWidget& dock) {
  const Workspace& w = panes_.Block();
  FormWindow& window = panes_.Owner().Shown().Main();
  if (Is_One_Beside()) return window.addDockWidget(Qt::RightDockWidgetArea, &dock);
  const CheckBox& last_box = w.Form1.Check5;
  const int room = Room_Beside_Panes(w.Form1.ClientWidth, w.Form1.ClientHeight, w.ImageCount,
                                     last_box.Left + last_box.Width);
  if (room == 0) return;
  window.addDockWidget(Qt::RightDockWidgetArea, &dock);
  // The size of a dock that is hidden yet cannot be set.
  QTimer::singleShot(
      0, &dock, [&window, &dock, room] { window.resizeDocks({&dock}, {room}, Qt::Horizontal); });
}

}  // namespace sylvomex
