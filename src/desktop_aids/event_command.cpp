// SPDX-License-Identifier: MIT
#include "desktop_aids/event_command.h"

#include <algorithm>

#include "workspace/menu_table.h"

namespace sylvomex {

std::string Command_Of(const OperatorEvent& event) {
  using Kind = OperatorEvent::Kind;
  if (event.form != "Form1") return {};
  if (event.kind == Kind::Menu || event.kind == Kind::Command) return event.control;
  if (event.kind != Kind::Key || event.key_code == 0) return {};
  const auto rows = Main_Menu();
  const auto row = std::ranges::find_if(rows, [&](const MenuRow& candidate) {
    return candidate.key_code == event.key_code && candidate.key_shift == event.shift;
  });
  return row == rows.end() ? std::string() : row->name;
}

OperatorEvent Choosing(const std::string& command) {
  OperatorEvent event;
  event.control = command;
  return event;
}

std::string Plain_Caption(const std::string& command) {
  const MenuRow* row = Find_Menu_Row(Main_Menu(), command);
  if (row == nullptr) return {};
  const std::string caption = row->caption;
  return caption.substr(0, caption.find(" (*"));
}

}  // namespace sylvomex
