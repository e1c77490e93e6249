// SPDX-License-Identifier: MIT
// The rows of the menu trees. Menus, accelerators, scripts and documentation are made from them.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace sylvomex {

struct Workspace;

enum class MenuRole {
  Submenu,
  Command,   // has a handler
  NoAction,  // an item that does nothing
  Separator,
};

struct MenuRow {
  int level = 0;  // 0: in the menu bar
  const char* name = "";
  const char* caption = "";
  int key_code = 0;   // accelerator, 0 for none
  int key_shift = 0;  // kShift, kCtrl
  bool greyed = false;
  MenuRole role = MenuRole::Submenu;
  void (*handler)(Workspace&) = nullptr;
  bool* (*check)(Workspace&) = nullptr;  // the check mark of the item, null for none
};

/// The 127 rows of the main window, in menu order.
std::span<const MenuRow> Main_Menu();

/// The row of that name; nullptr when there is none.
const MenuRow* Find_Menu_Row(std::span<const MenuRow> rows, std::string_view name);

/// The row of that name in a window's menu ("Form3"); nullptr when there is none.
const MenuRow* Find_Menu_Row(std::string_view form, std::string_view name);

/// "Ctrl+I", "Shift+F12", "F2", or "".
std::string Key_Text(const MenuRow& row);

/// Runs the command of a row, greyed or not; a row of another role does nothing.
void Run_Menu_Row(Workspace& w, const MenuRow& row);

/// Run_Menu_Row for a command of the main menu. RunTimeError(BadContent) for an unknown name.
void Run_Menu_Command(Workspace& w, std::string_view name);

}  // namespace sylvomex
