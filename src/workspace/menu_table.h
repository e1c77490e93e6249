// SPDX-License-Identifier: MIT
// The menu trees. Menus, accelerators, scripts and documentation are made from these rows.
#pragma once

#include <span>
#include <string_view>

#include "workspace/state/workspace.h"

namespace sylvomex {

struct MenuRow {
  int level = 0;               // 0 stands in the menu bar
  const char* name = "";
  const char* caption = "";
  int key_code = 0;            // accelerator, 0 for none
  int key_shift = 0;           // kShift, kCtrl
  bool greyed = false;
  void (*handler)(Workspace&) = nullptr;  // null: a submenu or an item without action
  bool* (*check)(Workspace&) = nullptr;   // the check mark of the item, null for none
};

/// The 127 rows of the main window, in menu order.
std::span<const MenuRow> Main_Menu();

/// The rows of another window ("Form2", "Form3", "Form7"); empty for one without a menu.
std::span<const MenuRow> Window_Menu(std::string_view form);

const MenuRow* Find_Menu_Row(std::string_view form, std::string_view name);

/// "Ctrl+I", "Shift+F12", "F2", or "".
std::string Key_Text(const MenuRow& row);

}  // namespace sylvomex
