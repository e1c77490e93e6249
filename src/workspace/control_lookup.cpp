// SPDX-License-Identifier: MIT
#include "workspace/control_lookup.h"

#include "state/workspace.h"

#include <charconv>

#include "workspace/window_table.h"

namespace sylvomex {
std::optional<ControlName> Parse_Control_Name(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos) return ControlName{std::string(text), kNoIndex};
  if (text.back() != ')') return std::nullopt;
  const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
  int index = -1;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (error != std::errc() || end != digits.data() + digits.size() || index < 0) {
    return std::nullopt;
  }
  return ControlName{std::string(text.substr(0, open)), index};
}

std::string Control_Name_Text(std::string_view name, int index) {
  std::string text(name);
  if (index != kNoIndex) text += "(" + std::to_string(index) + ")";
  return text;
}

AnyControl Find_Control(Workspace& w, std::string_view form, const ControlName& control) {
  const WindowRow* window = Find_Window(form);
  if (window == nullptr) return {};
  return Find_Control(window->record(w), *window->design, control.name, control.index);
}

Form* Find_Form(Workspace& w, std::string_view form) {
  const WindowRow* window = Find_Window(form);
  return window == nullptr ? nullptr : &window->record(w);
}

}  // namespace sylvomex
