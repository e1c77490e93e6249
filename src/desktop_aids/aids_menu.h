// SPDX-License-Identifier: MIT
// The menu of the aids, in the corner of the main window's menu bar.
#pragma once

#include <QMenu>
#include <QToolButton>
#include <functional>

#include "desktop/desktop.h"

namespace sylvomex {

class AidsMenu {
 public:
  explicit AidsMenu(Desktop& desktop);

  /// An item that turns something on and off.
  QAction& Add_Switch(const char* name, const QString& text, bool on,
                      std::function<void(bool)> turn);

  /// An item that something else has made.
  void Add_Existing(const char* name, QAction& action);

  QMenu& Add_Submenu(const char* name, const QString& text);

  [[nodiscard]] QList<QAction*> Actions() const { return menu_->actions(); }

  QAction& Add_Item(const char* name, const QString& text, std::function<void()> run);

 private:
  QMenu* menu_;  // owned by its button
};

}  // namespace sylvomex
