// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <unordered_map>

#include "desktop_aids/aided_panes.h"

namespace sylvomex {

/// Keeps what stands above a pane within the pane's width, where panes are narrower than their
/// boxes, tick and read-out: else each lies above the next pane. The records keep their places.
class PaneHeads {
 public:
  /// The desktop must outlive it; from then on the main window places them so.
  explicit PaneHeads(const AidedPanes& panes);

 private:
  enum class Part { FilmX, FilmY, Position, Use, ReadOut };
  struct Place {
    Part part;
    int pane;
  };

  [[nodiscard]] QRect Within(const Place& place, const QRect& own) const;
  [[nodiscard]] int Width_Of_Tick(int pane, int room) const;

  AidedPanes panes_;
  std::unordered_map<const Control*, Place> parts_;
};

}  // namespace sylvomex
