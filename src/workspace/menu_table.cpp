// SPDX-License-Identifier: MIT
#include "workspace/menu_table.h"

#include "state/workspace.h"
#include "workspace/operator_event.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr int kF1 = 112;
constexpr int kF12 = 123;

}  // namespace

const MenuRow* Find_Menu_Row(std::span<const MenuRow> rows, std::string_view name) {
  for (const MenuRow& row : rows) {
    if (name == row.name) return &row;
  }
  return nullptr;
}

const MenuRow* Find_Menu_Row(std::string_view form, std::string_view name) {
  const WindowRow* window = Find_Window(form);
  return window == nullptr ? nullptr : Find_Menu_Row(window->menu, name);
}

std::string Key_Text(const MenuRow& row) {
  if (row.key_code == 0) return "";
  std::string text;
  if ((row.key_shift & kCtrl) != 0) text += "Ctrl+";
  if ((row.key_shift & kShift) != 0) text += "Shift+";
  if (row.key_code >= kF1 && row.key_code <= kF12) {
    return text + "F" + std::to_string(row.key_code - kF1 + 1);
  }
  return text + static_cast<char>(row.key_code);
}

void Run_Menu_Row(Workspace& w, const MenuRow& row) {
  if (row.role == MenuRole::Command) row.handler(w);
}

void Run_Menu_Command(Workspace& w, std::string_view name) {
  const MenuRow* row = Find_Menu_Row(Main_Menu(), name);
  if (row == nullptr) {
    throw RunTimeError(Failure::BadContent, "there is no menu item " + std::string(name));
  }
  Run_Menu_Row(w, *row);
}

}  // namespace sylvomex
