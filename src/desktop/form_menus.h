// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenuBar>
#include <string>
#include <vector>

#include "desktop/operator_events.h"
#include "workspace/menu_table.h"

namespace sylvomex {

/// The menu bar of one window, generated from its rows. Accelerators are only displayed: a key
/// press reaches its menu item as an OperatorEvent, like every other key.
class FormMenus {
 public:
  FormMenus(OperatorEvents& events, std::string form, std::span<const MenuRow> rows, QMenuBar& bar);

  /// Copies the check marks from the block.
  void Mirror(Workspace& w);

  /// True for the accelerator of a menu item.
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
