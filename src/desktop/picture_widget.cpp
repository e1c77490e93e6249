// SPDX-License-Identifier: MIT
#include "desktop/picture_widget.h"

#include <qdrawutil.h>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <utility>

#include "desktop/exact_position.h"
#include "desktop/key_codes.h"
#include "desktop/pane_image.h"

namespace sylvomex {
namespace {

/// 0 for a button that means nothing here.
int Button_Number(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return kLeftButton;
    case Qt::RightButton:
      return kRightButton;
    case Qt::MiddleButton:
      return kMiddleButton;
    default:
      return 0;
  }
}

}  // namespace

PictureWidget::PictureWidget(OperatorEvents& events, std::string form, std::string control,
                             const Picture& picture, QWidget* parent)
    : QWidget(parent),
      events_(events),
      form_(std::move(form)),
      control_(std::move(control)),
      picture_(picture) {
  setMouseTracking(true);
  setFocusPolicy(Qt::ClickFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

bool PictureWidget::Needs_Full_Painting() const {
  const QSize inside =
      size().shrunkBy(QMargins(kPictureBorder, kPictureBorder, kPictureBorder, kPictureBorder));
  return painted_.size() != inside.expandedTo(QSize(1, 1)) ||
         bitmap_version_ != picture_.bitmap_version || erase_version_ != picture_.erase_version ||
         marks_in_picture_ > picture_.marks.size();
}

void PictureWidget::Mirror() {
  Mirror_Pointer();
  QRect changed = Mirror_Bitmap();
  changed |= Mirror_Marks();
  changed |= Mirror_Floating(changed);
  if (!changed.isEmpty()) update(changed.translated(kPictureBorder, kPictureBorder));
}

QRect PictureWidget::Mirror_Bitmap() {
  if (!Needs_Full_Painting()) return {};
  const QSize inside(width() - 2 * kPictureBorder, height() - 2 * kPictureBorder);
  painted_ = To_Image(picture_.bitmap.get(), inside.expandedTo(QSize(1, 1)));
  label_room_.emplace(painted_.width(), painted_.height());
  bitmap_version_ = picture_.bitmap_version;
  erase_version_ = picture_.erase_version;
  marks_in_picture_ = 0;
  return painted_.rect();
}

void PictureWidget::Thin_Labels(bool thin) {
  if (thin == thins_labels_) return;
  thins_labels_ = thin;
  painted_ = QImage();  // to be painted anew
  Mirror();
}

QRect PictureWidget::Paint_New_Marks() {
  if (!thins_labels_) return Rect_Of(Paint_Marks(Pixels_Of(painted_), picture_, marks_in_picture_));
  return Rect_Of(
      Paint_Marks_Thinned(Pixels_Of(painted_), picture_, marks_in_picture_, *label_room_));
}

QRect PictureWidget::Mirror_Marks() {
  if (marks_in_picture_ == picture_.marks.size()) return {};
  const QRect changed = Paint_New_Marks();
  marks_painted_ += picture_.marks.size() - marks_in_picture_;
  marks_in_picture_ = picture_.marks.size();
  return changed;
}

QRect PictureWidget::Mirror_Floating(const QRect& painted) {
  if (floating_version_ == picture_.floating_version && painted.isEmpty()) return {};
  floating_version_ = picture_.floating_version;
  const QRect before = std::exchange(floating_rect_, QRect());
  if (picture_.floating.empty()) {
    with_floating_ = QImage();
    return before;
  }
  if (with_floating_.size() == painted_.size()) {
    Copy_Pixels(painted_, with_floating_, before | painted);
  } else {
    with_floating_ = painted_.copy();
  }
  floating_rect_ = Rect_Of(Paint_Floating(Pixels_Of(with_floating_), picture_));
  return before | floating_rect_;
}

void PictureWidget::Mirror_Pointer() {
  switch (picture_.MousePointer) {
    case PointerShape::Normal:
      Mirror_Normal_Pointer();
      break;
    case PointerShape::Hourglass:
      if (cursor().shape() != Qt::WaitCursor) setCursor(Qt::WaitCursor);
      break;
    case PointerShape::Custom:
      if (const QCursor& custom = events_.Custom_Cursor(picture_.PointerFile); cursor() != custom) {
        setCursor(custom);
      }
      break;
  }
}

void PictureWidget::Mirror_Normal_Pointer() {
  if (picture_.floating.empty()) {
    if (testAttribute(Qt::WA_SetCursor)) unsetCursor();
  } else if (cursor().shape() != Qt::BlankCursor) {
    setCursor(Qt::BlankCursor);  // the floating marks show where the pointer is
  }
}

void PictureWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect inside(QPoint(kPictureBorder, kPictureBorder), painted_.size());
  const QRect wanted = event->rect() & inside;
  const QImage& shown = with_floating_.isNull() ? painted_ : with_floating_;
  painter.drawImage(wanted, shown, wanted.translated(-kPictureBorder, -kPictureBorder));
  if (!inside.contains(event->rect())) {
    qDrawShadePanel(&painter, rect(), palette(), true, kPictureBorder);
  }
}

QPointF PictureWidget::Exact_Position(const QMouseEvent& event) const {
  return sylvomex::Exact_Position(*this, event);
}

OperatorEvent PictureWidget::Event_At(OperatorEvent::Kind kind, const QMouseEvent& event) const {
  OperatorEvent made;
  made.kind = kind;
  made.form = form_;
  made.control = control_;
  made.shift = Shift_Mask(event.modifiers());
  const QPointF at = Exact_Position(event);
  made.x = at.x() - kPictureBorder;
  made.y = at.y() - kPictureBorder;
  return made;
}

void PictureWidget::Send_Press(OperatorEvent::Kind kind, const QMouseEvent& event) {
  const int button = Button_Number(event.button());
  if (button == 0 || (button == kMiddleButton && !tells_middle_button_)) return;
  OperatorEvent press = Event_At(kind, event);
  press.button = button;
  events_.Dispatch(press);
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
  Send_Press(OperatorEvent::Kind::Click, *event);
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  using Kind = OperatorEvent::Kind;
  Send_Press(tells_double_clicks_ ? Kind::DoubleClick : Kind::Click, *event);
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
  events_.Dispatch_Move(Event_At(OperatorEvent::Kind::Move, *event));
}

}  // namespace sylvomex
