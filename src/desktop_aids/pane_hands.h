// SPDX-License-Identifier: MIT
// The hand on the panes: the wheel zooms, the middle button or the left one with the space bar held
// drags. What it does goes out as OperatorEvents.
#pragma once

#include <QObject>
#include <QTimer>
#include <optional>

#include "desktop_aids/aided_panes.h"
#include "imageblock/pixel_position.h"

namespace sylvomex {

class PaneHands : public QObject {
 public:
  /// The panes must outlive it.
  explicit PaneHands(const AidedPanes& panes);
  ~PaneHands() override { Let_Go(); }  // the shape of the pointer is the whole program's

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Grip {
    int pane = 0;
    Qt::MouseButton button = Qt::MiddleButton;
    PixelPosition held;  // place in the photograph that follows the pointer
    QPointF pointer;     // pane pixels
    bool all_panes = false;
  };

  bool Turn_Wheel(int pane, const QWheelEvent& wheel);
  bool Press(int pane, const QMouseEvent& press);
  bool Move(const QMouseEvent& move);
  bool Release(const QMouseEvent& release);
  void Let_Go();
  bool Space_Bar(const QKeyEvent& key, bool down);
  void Send_Drag();

  const AidedPanes& panes_;
  std::optional<Grip> grip_;
  QTimer drag_timer_;        // moves that arrive faster than they can be shown are merged
  double wheel_turned_ = 0;  // notches not yet sent, of wheels finer than a notch
  bool space_held_ = false;
};

}  // namespace sylvomex
