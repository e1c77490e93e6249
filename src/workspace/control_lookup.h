// SPDX-License-Identifier: MIT
// Windows and controls by their names.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "state/workspace.h"

namespace sylvomex {

/// "Text1(3)" is name "Text1", index 3; a name without parentheses has index -1. Nothing when
/// the text is not of that form.
struct ControlName {
  std::string name;
  int index = -1;
};
std::optional<ControlName> Parse_Control_Name(std::string_view text);

using AnyControl =
    std::variant<std::monostate, Label*, TextBox*, CheckBox*, Button*, Picture*, Divider*>;

/// The control of a window, monostate when there is none of that name.
AnyControl Find_Control(Workspace& w, std::string_view form, const ControlName& control);

/// The window record, null for a window that does not exist.
Form* Find_Form(Workspace& w, std::string_view form);

}  // namespace sylvomex
