// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenuBar>
#include <string>
#include <vector>

#include "desktop/operator_events.h"
#include "workspace/menu_table.h"

namespace sylvomex {

/// The menu bar of one window, made from its rows. Keys are only told here: a key press
/// reaches its menu item as an OperatorEvent, like every other key.
class FormMenus {
 public:
  FormMenus(OperatorEvents& events, std::string form, std::span<const MenuRow> rows, QMenuBar& bar);

  /// Check marks as the block has them.
  void Mirror(Workspace& w);

  /// True when the key is that of a menu item.
  [[nodiscard]] bool Has_Key(int key_code, int shift) const;

 private:
  void Add_Item(const MenuRow& row, QWidget& parent);

  struct CheckedItem {
    const MenuRow* row;
    QAction* action;
  };

  OperatorEvents& events_;
  std::string form_;
  std::span<const MenuRow> rows_;
  std::vector<CheckedItem> checked_;
};

}  // namespace sylvomex
