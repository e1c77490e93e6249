// SPDX-License-Identifier: MIT
#include "desktop_aids/magnifier.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "desktop/exact_position.h"
#include "desktop/key_codes.h"
#include "desktop/pane_image.h"
#include "panes/pane_drawing.h"
#include "panes/shown_raster.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

using Kind = OperatorEvent::Kind;

constexpr std::array kFactors{4, 6, 8, 12, 16};
constexpr quint64 kTap = 250;  // milliseconds: a key held for less locks the magnifier
constexpr Colour kEpipolarColour{0, 255, 255};

int Next_Factor(int factor, int direction) {
  const auto at = std::ranges::find(kFactors, factor) - kFactors.begin();
  const auto last = static_cast<std::ptrdiff_t>(kFactors.size()) - 1;
  return kFactors.at(static_cast<std::size_t>(std::clamp(at + direction, std::ptrdiff_t{0}, last)));
}

/// The marks of a picture as the magnifier shows them.
Picture Magnified_Marks(const Picture& picture, const MagnifiedView& view) {
  constexpr double kBeyond = 40;  // pane pixels that a text or thick pen may reach over the edge
  const PanePosition end = view.To_Pane(Magnifier::kSide, Magnifier::kSide);
  Picture magnified;
  magnified.texts = picture.texts;
  for (const Mark& mark : picture.marks) {
    const auto [left, right] =
        std::minmax(mark.x1, mark.kind == Mark::Kind::Line ? mark.x2 : mark.x1);
    const auto [top, bottom] =
        std::minmax(mark.y1, mark.kind == Mark::Kind::Line ? mark.y2 : mark.y1);
    if (right < view.corner.px - kBeyond || left > end.px + kBeyond) continue;
    if (bottom < view.corner.py - kBeyond || top > end.py + kBeyond) continue;
    Mark moved = mark;
    const PanePosition from = view.From_Pane({mark.x1, mark.y1});
    const PanePosition to = view.From_Pane({mark.x2, mark.y2});
    moved.x1 = from.px;
    moved.y1 = from.py;
    moved.x2 = to.px;
    moved.y2 = to.py;
    magnified.marks.push_back(moved);
  }
  return magnified;
}

void Draw_Epipolar(Picture& marks, const MagnifiedView& view, const EpipolarEnds& ends) {
  const PanePosition from = view.From_Pane(ends.lower);
  const PanePosition to = view.From_Pane(ends.upper);
  marks.DrawWidth = 1;
  Draw_Line(marks, from.px, from.py, to.px, to.py, kEpipolarColour);
}

/// Four arms that leave the middle free, bright with dark edges.
void Paint_Hollow_Cross(QPainter& painter, const QPointF& at) {
  constexpr double kHollow = 6, kReach = 22;
  for (const auto& [colour, width] :
       {std::pair(QColor(0, 0, 0), 4.0), {QColor(255, 230, 0), 2.0}}) {
    painter.setPen(QPen(colour, width));
    for (const QPointF& arm : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
      painter.drawLine(at + kHollow * arm, at + kReach * arm);
    }
  }
}

void Paint_Caption(QPainter& painter, const QString& text, const QRect& rect) {
  const QRect line = rect.adjusted(0, rect.height() - painter.fontMetrics().height() - 4, 0, 0);
  painter.fillRect(line, QColor(0, 0, 0, 170));
  painter.setPen(Qt::white);
  painter.drawText(line.adjusted(4, 0, -4, 0), Qt::AlignVCenter | Qt::AlignLeft, text);
}

/// The part of a widget that no widget around it cuts off.
QRect In_Sight(const QWidget& widget) {
  QRect sight = widget.rect();
  for (const QWidget* around = &widget; !around->isWindow();) {
    around = around->parentWidget();
    sight &= QRect(widget.mapFrom(around, QPoint()), around->size());
  }
  return sight;
}

}  // namespace

Magnifier::Magnifier(const AidedPanes& panes)
    : QWidget(panes.Widget(0).parentWidget()), panes_(panes) {
  setObjectName(QStringLiteral("Magnifier"));
  setAccessibleName(QStringLiteral("Magnifier"));
  setFixedSize(kSide + 2 * kFrame, kSide + 2 * kFrame);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::NoFocus);
  hide();
  qApp->installEventFilter(this);
}

bool Magnifier::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove && held_ && !locked_) {
    if (panes_.Index_Of(watched)) Show_At_Pointer();
    return false;
  }
  if (event->type() == QEvent::WindowDeactivate && held_) {  // the release goes elsewhere
    held_ = false;
    if (!locked_) Put_Away();
  }
  if (event->type() == QEvent::Resize && watched->isWidgetType() &&
      static_cast<QWidget*>(watched)->isAncestorOf(this)) {
    Follow_Pane();
  }
  const bool is_key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (!is_key) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (!Is_Key_For_Panes(panes_, watched, key.key())) return false;
  return event->type() == QEvent::KeyPress ? Key_Pressed(key) : Key_Released(key);
}

bool Magnifier::Key_Pressed(const QKeyEvent& key) {
  if (locked_ && key.key() == Qt::Key_Escape) {
    Put_Away();
    return true;
  }
  if (key.key() != kKey || key.modifiers() != Qt::NoModifier) return false;
  if (key.isAutoRepeat() || held_) return held_;
  if (!locked_ && !panes_.Under(QCursor::pos())) return false;
  held_ = true;
  was_locked_ = locked_;
  held_since_ = key.timestamp();
  if (!locked_) Show_At_Pointer();
  return true;
}

bool Magnifier::Key_Released(const QKeyEvent& key) {
  if (key.key() != kKey || !held_) return false;
  if (key.isAutoRepeat()) return true;
  held_ = false;
  if (!was_locked_ && isVisible() && key.timestamp() - held_since_ < kTap) {
    Lock();
  } else {
    Put_Away();
  }
  return true;
}

void Magnifier::Lock() {
  locked_ = true;
  setAttribute(Qt::WA_TransparentForMouseEvents, false);
  setCursor(Qt::BlankCursor);
}

void Magnifier::Put_Away() {
  locked_ = false;
  hide();
}

void Magnifier::Show_At_Pointer() {
  const auto place = panes_.Under(QCursor::pos());
  if (!place) return hide();
  setAttribute(Qt::WA_TransparentForMouseEvents, true);
  Look_At(*place);
}

void Magnifier::Look_At(const AidedPanes::Place& place) {
  place_ = place;
  Paint_View();
  if (!view_) return hide();
  const PanePosition at = view_->From_Pane({place.at.x(), place.at.y()});
  cross_ = {at.px, at.py};
  Place_Widget();
  show();
  raise();
  update();
}

/// Centred on the pointer, inside what is in sight of a window that scrolls.
void Magnifier::Place_Widget() {
  const PictureWidget& pane = panes_.Widget(place_.pane);
  const QPointF pointer = pane.pos() + place_.at + QPointF(kPictureBorder, kPictureBorder);
  QRect rect(QPoint(), size());
  rect.moveCenter(pointer.toPoint());
  pane_ = pane.geometry();
  room_ = In_Sight(*parentWidget());
  rect.moveRight(std::min(rect.right(), room_.right()));
  rect.moveBottom(std::min(rect.bottom(), room_.bottom()));
  rect.moveLeft(std::max(rect.left(), room_.left()));
  rect.moveTop(std::max(rect.top(), room_.top()));
  move(rect.topLeft());
}

/// Stays at its place of the photograph when the window or a dock has changed where the panes are.
void Magnifier::Follow_Pane() {
  if (!isVisible() || !Shows_Image(panes_.Block(), place_.pane)) return;
  if (const QRect laid_out = Laid_Out(); laid_out != laid_out_) {
    const PanePosition at = Pane_Of_Pixel(panes_.Block(), place_.pane, pixel_);
    if (!QRectF(0, 0, laid_out.width(), laid_out.height()).contains(at.px, at.py)) {
      return Put_Away();
    }
    place_.at = {at.px, at.py};
    laid_out_ = laid_out;
    Place_Widget();
  }
  const QRect pane = panes_.Widget(place_.pane).geometry();
  if (pane != pane_ || In_Sight(*parentWidget()) != room_) Place_Widget();
}

/// Of the pane, by the block: its view changes with it, the widget follows later.
QRect Magnifier::Laid_Out() const {
  const Workspace& w = panes_.Block();
  const Picture& pane = w.Form1.Picture1(place_.pane);
  return {static_cast<int>(pane.Left), static_cast<int>(pane.Top), w.PaneWidth, w.PaneHeight};
}

void Magnifier::Paint_View() {
  Workspace& w = panes_.Block();
  const PanePosition at{place_.at.x(), place_.at.y()};
  view_ = Magnify(w, place_.pane, at, factor_, kSide);
  if (!view_) return;
  pixel_ = Pixel_Of_Pane(w, place_.pane, at.px, at.py);
  laid_out_ = Laid_Out();
  painted_ = To_Image(view_->pixels);
  Picture marks = Magnified_Marks(w.Form1.Picture1(place_.pane), *view_);
  if (const auto ends = Epipolar_Ends(w, place_.pane)) Draw_Epipolar(marks, *view_, *ends);
  Paint_Marks(Pixels_Of(painted_), marks, 0);
}

void Magnifier::Refresh() {
  if (!isVisible()) return;
  Follow_Pane();
  Paint_View();
  if (!view_) return Put_Away();
  update();
}

PanePosition Magnifier::Under_Cross() const { return view_->To_Pane(cross_.x(), cross_.y()); }

void Magnifier::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), locked_ ? QColor(255, 230, 0) : QColor(240, 240, 240));
  if (!view_) return;
  painter.translate(kFrame, kFrame);
  painter.drawImage(0, 0, painted_);
  painter.setClipRect(0, 0, kSide, kSide);
  painter.setRenderHint(QPainter::Antialiasing);
  Paint_Hollow_Cross(painter, cross_);
  const PanePosition at = Under_Cross();
  Paint_Caption(painter,
                QStringLiteral("%1x   image %2   pane %3  %4%5")
                    .arg(factor_)
                    .arg(panes_.Block().ImageBlock(place_.pane).ImageId)
                    .arg(at.px, 0, 'f', 2)
                    .arg(at.py, 0, 'f', 2)
                    .arg(locked_ ? QStringLiteral("   locked, G or Esc ends") : QString()),
                QRect(0, 0, kSide, kSide));
}

void Magnifier::Send(Kind kind, const QMouseEvent& mouse) {
  const PanePosition at = Under_Cross();
  OperatorEvent event = AidedPanes::Event_On(kind, place_.pane, {at.px, at.py});
  event.shift = Shift_Mask(mouse.modifiers());
  if (kind == Kind::Move) return panes_.Owner().Dispatch_Move(event);
  event.button = mouse.button() == Qt::RightButton ? kRightButton : kLeftButton;
  panes_.Owner().Dispatch(event);
}

void Magnifier::mousePressEvent(QMouseEvent* event) {
  if (!view_ || event->button() == Qt::MiddleButton) return;
  cross_ = Exact_Position(*this, *event) - QPointF(kFrame, kFrame);
  Send(Kind::Click, *event);
  Refresh();
}

void Magnifier::mouseMoveEvent(QMouseEvent* event) {
  if (!view_) return;
  cross_ = Exact_Position(*this, *event) - QPointF(kFrame, kFrame);
  update();
  Send(Kind::Move, *event);
  const PanePosition at = Under_Cross();
  if (pointed_) pointed_({place_.pane, {at.px, at.py}});
}

/// Another factor, about the place under the cross.
void Magnifier::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (!view_ || event->angleDelta().y() == 0) return;
  factor_ = Next_Factor(factor_, event->angleDelta().y() > 0 ? 1 : -1);
  const PanePosition under = Under_Cross();
  place_.at = {under.px, under.py};
  Paint_View();
  if (!view_) return Put_Away();
  const PanePosition at = view_->From_Pane(under);
  cross_ = {at.px, at.py};
  update();
}

}  // namespace sylvomex
