// SPDX-License-Identifier: MIT
#include "desktop_aids/pane_hands.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>

#include "panes/pane_drawing.h"
#include "panes/shown_raster.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

using Kind = OperatorEvent::Kind;

constexpr double kNotch = 120;  // eighths of a degree

/// Whether a drag by that many pane pixels reaches another raw pixel.
bool Reaches_Another_Pixel(double distance, double zoom) { return std::abs(distance / zoom) > 0.5; }

}  // namespace

PaneHands::PaneHands(const AidedPanes& panes) : panes_(panes) {
  for (int pane = 0; pane < kAidedPanes; ++pane) panes.Widget(pane).installEventFilter(this);
  qApp->installEventFilter(this);
  drag_timer_.setSingleShot(true);
  connect(&drag_timer_, &QTimer::timeout, this, [this] { Send_Drag(); });
}

bool PaneHands::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return Is_Key_For_Panes(panes_, watched, static_cast<QKeyEvent*>(event)->key()) &&
             Space_Bar(*static_cast<QKeyEvent*>(event), event->type() == QEvent::KeyPress);
    case QEvent::WindowDeactivate:
      space_held_ = false;  // the releases go elsewhere
      Let_Go();
      return false;
    case QEvent::Wheel:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      break;
    default:
      return false;
  }
  const std::optional<int> pane = panes_.Index_Of(watched);
  if (!pane) return false;
  if (event->type() == QEvent::Wheel) return Turn_Wheel(*pane, *static_cast<QWheelEvent*>(event));
  const auto& mouse = *static_cast<QMouseEvent*>(event);
  if (event->type() == QEvent::MouseMove) return Move(mouse);
  if (event->type() == QEvent::MouseButtonRelease) return Release(mouse);
  return Press(*pane, mouse);
}

bool PaneHands::Turn_Wheel(int pane, const QWheelEvent& wheel) {
  wheel_turned_ += wheel.angleDelta().y() / kNotch;
  const int notches = static_cast<int>(wheel_turned_);
  wheel_turned_ -= notches;
  if (notches == 0) return true;
  OperatorEvent event = AidedPanes::Event_On(Kind::Wheel, pane, Pane_Position(wheel.position()));
  event.notches = notches;
  if (wheel.modifiers().testFlag(Qt::ControlModifier)) event.shift = kCtrl;
  panes_.Owner().Dispatch(event);
  return true;
}

bool PaneHands::Press(int pane, const QMouseEvent& press) {
  if (grip_) return true;
  const bool with_space = space_held_ && press.button() == Qt::LeftButton;
  if (press.button() != Qt::MiddleButton && !with_space) return false;
  if (!Shows_Image(panes_.Block(), pane)) return false;
  const QPointF at = Pane_Position(press.position());
  grip_ =
      Grip{pane, press.button(), Pixel_Of_Pane(panes_.Block(), pane, at.x(), at.y()), at, false};
  QApplication::setOverrideCursor(Qt::ClosedHandCursor);
  return true;
}

bool PaneHands::Move(const QMouseEvent& move) {
  if (!grip_) return false;
  if (!move.buttons().testFlag(grip_->button)) {  // its release went elsewhere
    Let_Go();
    return false;
  }
  grip_->pointer = Pane_Position(move.position());
  grip_->all_panes = move.modifiers().testFlag(Qt::ShiftModifier);
  if (!drag_timer_.isActive()) drag_timer_.start(0);
  return true;
}

bool PaneHands::Release(const QMouseEvent& release) {
  if (!grip_ || release.button() != grip_->button) return grip_.has_value();
  grip_->pointer = Pane_Position(release.position());
  Send_Drag();
  Let_Go();
  return true;
}

void PaneHands::Let_Go() {
  if (!grip_) return;
  drag_timer_.stop();
  grip_.reset();
  QApplication::restoreOverrideCursor();
}

void PaneHands::Send_Drag() {
  if (!grip_ || !Shows_Image(panes_.Block(), grip_->pane)) return;
  Workspace& w = panes_.Block();
  const PanePosition now = Pane_Of_Pixel(w, grip_->pane, grip_->held);
  const QPointF distance = grip_->pointer - QPointF(now.px, now.py);
  const PaneView& view = Shown_View(w, grip_->pane);
  if (!Reaches_Another_Pixel(distance.x(), view.ZoomX) &&
      !Reaches_Another_Pixel(distance.y(), view.ZoomY)) {
    return;
  }
  OperatorEvent event = AidedPanes::Event_On(Kind::Pan, grip_->pane, distance);
  if (grip_->all_panes) event.shift = kShift;
  panes_.Owner().Dispatch(event);
}

bool PaneHands::Space_Bar(const QKeyEvent& key, bool down) {
  if (key.key() != Qt::Key_Space) return false;
  if (down && !panes_.Under(QCursor::pos())) return false;
  const bool taken = down || space_held_;
  if (!key.isAutoRepeat()) space_held_ = down;
  return taken;
}

}  // namespace sylvomex
