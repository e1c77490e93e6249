// SPDX-License-Identifier: MIT
// A desktop with its aids over a site with two small images.
#pragma once

#include <QCursor>
#include <QWheelEvent>

#include "desktop_aids/aids.h"
#include "desktop_fixture.h"

namespace sylvomex {

class AidedDesktop : public DesktopTest {
 protected:
  AidedDesktop() {
    Add_Two_Images();
    aids_.emplace(*desktop_);
  }

  /// Starts again, writing the session to a script.
  void Start_Recorded(const char* name) {
    aids_.reset();
    Start(site_.Folder().Path() / name);
    Add_Two_Images();
    aids_.emplace(*desktop_);
  }

  static QPointF In_Widget(double px, double py) {
    return {px + kPictureBorder, py + kPictureBorder};
  }

  static void Send_Mouse(QWidget& to, QEvent::Type type, const QPointF& at, Qt::MouseButton button,
                         Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(type, at, to.mapToGlobal(at), button, buttons, modifiers);
    QApplication::sendEvent(&to, &event);
  }

  void Wheel(int pane, double px, double py, int eighths, Qt::KeyboardModifiers modifiers = {}) {
    PictureWidget& to = Pane(pane);
    const QPointF at = In_Widget(px, py);
    QWheelEvent event(at, to.mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&to, &event);
  }

  /// Presses, moves in two steps and releases.
  void Drag(int pane, const QPointF& from, const QPointF& to, Qt::MouseButton button,
            Qt::KeyboardModifiers modifiers = {}) {
    QWidget& widget = Pane(pane);
    const QPointF border(kPictureBorder, kPictureBorder);
    Send_Mouse(widget, QEvent::MouseButtonPress, from + border, button, button, modifiers);
    for (const QPointF& at : {(from + to) / 2, to}) {
      Send_Mouse(widget, QEvent::MouseMove, at + border, Qt::NoButton, button, modifiers);
      QApplication::processEvents();
    }
    Send_Mouse(widget, QEvent::MouseButtonRelease, to + border, button, Qt::NoButton, modifiers);
  }

  /// The pointer over a pane, as the window system tells it.
  void Point_At(int pane, double px, double py) {
    QWidget& widget = Pane(pane);
    const QPointF at = In_Widget(px, py);
    QCursor::setPos(widget.mapToGlobal(at).toPoint());
    Send_Mouse(widget, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
    QApplication::processEvents();
  }

  void Expect_View(int pane, int col, int row, double zoom) {
    const PaneView& view = w().PaneViews(pane);
    EXPECT_EQ(view.ViewCol, col);
    EXPECT_EQ(view.ViewRow, row);
    EXPECT_EQ(view.ZoomX, zoom);
  }

  std::optional<Aids> aids_;
};

}  // namespace sylvomex
