// SPDX-License-Identifier: MIT
// A pane on the screen: a sunken border of two pixels around the picture.
#pragma once

#include <QImage>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <string>

#include "desktop/operator_events.h"
#include "panes/label_room.h"
#include "state/picture.h"

namespace sylvomex {

inline constexpr int kPictureBorder = 2;  // pixels

class PictureWidget : public QWidget {
 public:
  PictureWidget(OperatorEvents& events, std::string form, std::string control,
                const Picture& picture, QWidget* parent);

  /// When set, a second press is sent as a double click instead of another click.
  void Tell_Double_Clicks(bool tell) { tells_double_clicks_ = tell; }
  void Tell_Middle_Button(bool tell) { tells_middle_button_ = tell; }

  /// Leaves texts out that would run into one painted before them.
  void Thin_Labels(bool thin);

  /// Updates the painted picture: new marks are added to what is already painted; everything is
  /// repainted only after a load, an erasure or a change of size.
  void Mirror();

  /// Without the floating marks.
  [[nodiscard]] const QImage& Painted() const { return painted_; }

  /// Number of marks drawn since the start, for tests of the painting cost.
  [[nodiscard]] std::uint64_t Marks_Painted() const { return marks_painted_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  [[nodiscard]] bool Needs_Full_Painting() const;
  void Mirror_Pointer();
  void Mirror_Normal_Pointer();
  QRect Mirror_Bitmap();
  QRect Mirror_Marks();
  QRect Paint_New_Marks();
  QRect Mirror_Floating(const QRect& painted);
  void Send_Press(OperatorEvent::Kind kind, const QMouseEvent& event);
  [[nodiscard]] QPointF Exact_Position(const QMouseEvent& event) const;
  OperatorEvent Event_At(OperatorEvent::Kind kind, const QMouseEvent& event) const;

  OperatorEvents& events_;
  std::string form_;
  std::string control_;
  const Picture& picture_;
  bool tells_double_clicks_ = false;
  bool tells_middle_button_ = false;
  bool thins_labels_ = false;
  std::optional<LabelRoom> label_room_;  // taken in painted_
  QImage painted_;
  QImage with_floating_;  // a copy of painted_ below the floating marks, null without them
  QRect floating_rect_;   // what they cover
  std::uint64_t bitmap_version_ = 0;
  std::uint64_t erase_version_ = 0;
  std::uint64_t floating_version_ = 0;
  std::size_t marks_in_picture_ = 0;
  std::uint64_t marks_painted_ = 0;
};

}  // namespace sylvomex
