// SPDX-License-Identifier: MIT
// A magnifier over the panes: raw pixels 4 to 16 times as large, the marks, the epipolar line and a
// hollow cross. While its key is held it follows the pointer; a tap of the key locks it, and then
// the pointer moves inside it and clicks there at fractions of a pixel.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>
#include <utility>

#include "desktop_aids/aided_panes.h"
#include "imageblock/pixel_position.h"
#include "panes/magnified_view.h"

namespace sylvomex {

class Magnifier : public QWidget {
 public:
  static constexpr Qt::Key kKey = Qt::Key_G;
  static constexpr int kSide = 320;  // pixels, without the frame
  static constexpr int kFrame = 3;

  /// The panes must outlive it.
  explicit Magnifier(const AidedPanes& panes);

  /// Told while the pointer moves inside it.
  void When_Pointed(std::function<void(const AidedPanes::Place&)> pointed) {
    pointed_ = std::move(pointed);
  }

  /// Repaints what the block has changed.
  void Refresh();

  [[nodiscard]] bool Is_Locked() const { return locked_; }
  [[nodiscard]] int Factor() const { return factor_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool Key_Pressed(const QKeyEvent& key);
  bool Key_Released(const QKeyEvent& key);
  void Show_At_Pointer();
  void Lock();
  void Put_Away();
  void Look_At(const AidedPanes::Place& place);
  void Place_Widget();
  void Follow_Pane();
  [[nodiscard]] QRect Laid_Out() const;
  void Paint_View();
  [[nodiscard]] PanePosition Under_Cross() const;
  void Send(OperatorEvent::Kind kind, const QMouseEvent& mouse);

  const AidedPanes& panes_;
  std::function<void(const AidedPanes::Place&)> pointed_;
  AidedPanes::Place place_;  // what it was put over
  PixelPosition pixel_;      // its place in the photograph
  QRect laid_out_;           // where the block has its pane
  QRect pane_, room_;        // of the pane's widget, and what was in sight, when it was put there
  int factor_ = 8;
  bool held_ = false;
  bool locked_ = false;
  bool was_locked_ = false;  // when the key went down
  quint64 held_since_ = 0;   // milliseconds, as the window system counts them
  std::optional<MagnifiedView> view_;
  QImage painted_;
  QPointF cross_;  // position inside the square
};

}  // namespace sylvomex
