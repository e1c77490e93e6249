// SPDX-License-Identifier: MIT
#pragma once

#include <QDockWidget>
#include <set>
#include <vector>

#include "desktop_aids/aided_panes.h"

namespace sylvomex {

/// Where a dock opens for the first time: to the right of the panes where they keep their size
/// beside it, else below them. A dock that the operator has put somewhere stays there.
class DockPlaces : public QObject {
 public:
  /// The docks must be in the window, below the panes, and like the panes outlive it.
  DockPlaces(const AidedPanes& panes, const std::vector<QDockWidget*>& docks);

 private:
  void Place(QDockWidget& dock);
  [[nodiscard]] bool Is_One_Beside() const;

  const AidedPanes& panes_;
  std::vector<QDockWidget*> docks_;
  std::set<const QDockWidget*> placed_;
};

/// The width that panes of a client area leave to a dock beside them; 0 where it is less than a
/// dock needs. boxes: what the boxes above the panes take of the width. Without images six are
/// expected.
int Room_Beside_Panes(double client_width, double client_height, int image_count, double boxes);

}  // namespace sylvomex
