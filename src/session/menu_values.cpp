// SPDX-License-Identifier: MIT
#include "session/block_values.h"
#include "session/value_text.h"
#include "workspace/menu_table.h"

namespace sylvomex {

namespace {

std::string Checked_Text(Workspace& w, const MenuRow& row) {
  const bool* const mark = row.check != nullptr ? row.check(w) : nullptr;
  return mark != nullptr && *mark ? "1" : "0";
}

std::optional<std::string> Row_Value(Workspace& w, const MenuRow& row,
                                     const std::string& property) {
  if (property.empty()) {
    if (row.check == nullptr) return std::nullopt;
    return Checked_Text(w, row);
  }
  if (property == "Checked") return Checked_Text(w, row);
  if (property == "Enabled") return Value_Text(!row.greyed);
  if (property == "Caption") return row.caption;
  return std::nullopt;
}

}  // namespace

std::optional<std::string> Menu_Value(Workspace& w, const std::vector<NamePart>& name) {
  const bool in_window = Is_Form_Name(name.front().name);
  const std::size_t first = in_window ? 1 : 0;
  if (first >= name.size() || name.size() > first + 2 || name[first].index) return std::nullopt;
  const std::string form = in_window ? name.front().name : "Form1";
  const MenuRow* const row = Find_Menu_Row(form, name[first].name);
  if (row == nullptr) return std::nullopt;
  return Row_Value(w, *row, first + 1 < name.size() ? name.back().name : "");
}

}  // namespace sylvomex
