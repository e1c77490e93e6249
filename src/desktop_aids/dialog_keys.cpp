// SPDX-License-Identifier: MIT
#include "desktop_aids/dialog_keys.h"

#include <QApplication>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>

#include "desktop/qt_text.h"
#include "workspace/control_lookup.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

bool Handles_Enter(const FormWindow& window, const QWidget& box) {
  const auto name = Parse_Control_Name(Block_Text(box.objectName()));
  const WindowRow* row = Find_Window(window.Name());
  return name && row != nullptr && Find_Handler(*row, name->name, Happening::KeyPress) != nullptr;
}

QPushButton* First_Button(const FormWindow& window) {
  for (QPushButton* button : window.centralWidget()->findChildren<QPushButton*>()) {
    if (button->isVisible() && button->isEnabled()) return button;
  }
  return nullptr;
}

}  // namespace

DialogKeys::DialogKeys(Desktop& desktop) : desktop_(desktop) { qApp->installEventFilter(this); }

/// Whether the focus was on a box, a tick or a dock beside the panes.
void DialogKeys::Give_Keys_To_Panes(const QWidget& focus) {
  FormWindow& main = desktop_.Shown().Main();
  auto* client = main.findChild<QWidget*>(QStringLiteral("client"));
  const bool is_elsewhere = &focus != client && &focus != &main &&
                            qobject_cast<const QMenuBar*>(&focus) == nullptr &&
                            dynamic_cast<const PictureWidget*>(&focus) == nullptr;
  if (!is_elsewhere) return;
  main.activateWindow();
  client->setFocus();
}

bool DialogKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& pressed = *static_cast<QKeyEvent*>(event);
  const bool is_enter = pressed.key() == Qt::Key_Return || pressed.key() == Qt::Key_Enter;
  if (!is_enter && pressed.key() != Qt::Key_Escape) return false;
  if ((pressed.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr) return false;
  const bool is_beside_panes = widget->window() == &desktop_.Shown().Main() ||
                               qobject_cast<QDockWidget*>(widget->window()) != nullptr;
  if (is_beside_panes) {
    if (!is_enter && widget == widget->window()->focusWidget()) Give_Keys_To_Panes(*widget);
    return false;  // others listen to Escape, too
  }
  auto* window = dynamic_cast<FormWindow*>(widget->window());
  if (window == nullptr) return false;
  if (!is_enter) {
    window->close();
    return true;
  }
  QPushButton* button = First_Button(*window);
  if (button == nullptr) return false;
  if (auto* focused = qobject_cast<QPushButton*>(widget)) button = focused;
  if (Handles_Enter(*window, *widget)) return false;
  button->click();
  return true;
}

}  // namespace sylvomex
