// SPDX-License-Identifier: MIT
#pragma once

#include <QMouseEvent>
#include <QWidget>

namespace sylvomex {

/// The position in a widget with its fractions: at a scale factor above 1 the event's own is
/// rounded to whole logical pixels, the one in the window is not.
QPointF Exact_Position(const QWidget& widget, const QMouseEvent& event);

}  // namespace sylvomex
