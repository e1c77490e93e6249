// SPDX-License-Identifier: MIT
#include "desktop_aids/aided_panes.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLineEdit>
#include <string>

namespace sylvomex {
namespace {

std::string Pane_Name(int pane) { return "Picture1(" + std::to_string(pane) + ")"; }

}  // namespace

AidedPanes::AidedPanes(Desktop& desktop) : desktop_(desktop) {
  for (int pane = 0; pane < kAidedPanes; ++pane) {
    widgets_.at(static_cast<std::size_t>(pane)) =
        dynamic_cast<PictureWidget*>(desktop.Shown().Main().Control_Widget(Pane_Name(pane)));
  }
}

PictureWidget& AidedPanes::Widget(int pane) const {
  return *widgets_.at(static_cast<std::size_t>(pane));
}

std::optional<int> AidedPanes::Index_Of(const QObject* widget) const {
  for (int pane = 0; pane < kAidedPanes; ++pane) {
    if (&Widget(pane) == widget) return pane;
  }
  return std::nullopt;
}

std::optional<AidedPanes::Place> AidedPanes::Under(const QPointF& global) const {
  for (int pane = 0; pane < kAidedPanes; ++pane) {
    const PictureWidget& widget = Widget(pane);
    const QPointF at = widget.mapFromGlobal(global);
    if (widget.isVisible() && widget.rect().contains(at.toPoint())) {
      return Place{pane, Pane_Position(at)};
    }
  }
  return std::nullopt;
}

OperatorEvent AidedPanes::Event_On(OperatorEvent::Kind kind, int pane, const QPointF& at) {
  OperatorEvent event;
  event.kind = kind;
  event.control = Pane_Name(pane);
  event.x = at.x();
  event.y = at.y();
  return event;
}

QPointF Pane_Position(const QPointF& in_widget) {
  return in_widget - QPointF(kPictureBorder, kPictureBorder);
}

bool Is_Key_For_Panes(const AidedPanes& panes, const QObject* receiver, int key) {
  const auto* widget = qobject_cast<const QWidget*>(receiver);
  const QWidget& window = panes.Owner().Shown().Main();
  if (widget == nullptr || widget->window() != &window) return false;
  const QWidget* focus = window.focusWidget();
  const bool presses =
      qobject_cast<const QAbstractButton*>(focus) != nullptr && key == Qt::Key_Space;
  return !presses && qobject_cast<const QLineEdit*>(focus) == nullptr &&
         qobject_cast<const QAbstractItemView*>(focus) == nullptr;
}

}  // namespace sylvomex
