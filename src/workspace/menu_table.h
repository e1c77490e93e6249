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
  NotBuilt,  // a command that is not built yet: choosing it says so
};

struct MenuRow {
  int level = 0;  // 0 stands in the menu bar
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

/// The row of that name, null when there is none.
const MenuRow* Find_Menu_Row(std::span<const MenuRow> rows, std::string_view name);

/// The row of that name in the menu of a window ("Form3"), null when there is none.
const MenuRow* Find_Menu_Row(std::string_view form, std::string_view name);

/// "Ctrl+I", "Shift+F12", "F2", or "".
std::string Key_Text(const MenuRow& row);

/// Runs the command of a row, greyed or not; one that is not built yet says so.
void Run_Menu_Row(Workspace& w, const MenuRow& row);

/// Run_Menu_Row for a command of the main menu. RunTimeError(BadContent) for a name that it does
/// not have.
void Run_Menu_Command(Workspace& w, std::string_view name);

/// One message that the named command is not built yet.
void Say_Not_Built(Workspace& w, std::string_view caption);

}  // namespace sylvomex
