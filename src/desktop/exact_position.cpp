// SPDX-License-Identifier: MIT
#include "desktop/exact_position.h"

#include <cmath>

namespace sylvomex {

QPointF Exact_Position(const QWidget& widget, const QMouseEvent& event) {
  const QPointF exact = event.scenePosition() - widget.mapTo(widget.window(), QPoint(0, 0));
  const QPointF off = exact - event.position();
  return std::abs(off.x()) < 1 && std::abs(off.y()) < 1 ? exact : event.position();
}

}  // namespace sylvomex
