// SPDX-License-Identifier: MIT
#include "desktop_aids/aid_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace sylvomex {

AidKeys::AidKeys(const AidedPanes& panes, std::vector<AidKey> keys)
    : panes_(panes), keys_(std::move(keys)) {
  qApp->installEventFilter(this);
}

bool AidKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != &panes_.Owner().Shown().Main()) return false;
  const auto& pressed = *static_cast<QKeyEvent*>(event);
  for (const AidKey& aid : keys_) {
    if (aid.key != pressed.key() || aid.modifiers != pressed.modifiers()) continue;
    aid.run();
    return true;
  }
  return false;
}

}  // namespace sylvomex
