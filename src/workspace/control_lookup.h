// SPDX-License-Identifier: MIT
// Look-up of windows and controls by name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "state/form.h"
#include "state/window_design.h"

namespace sylvomex {

struct Workspace;

/// "Text1(3)" is name "Text1", index 3; a name without parentheses has index kNoIndex. std::nullopt
/// when the text does not have that form.
struct ControlName {
  std::string name;
  int index = kNoIndex;
};
std::optional<ControlName> Parse_Control_Name(std::string_view text);

/// "Text1(3)", or the bare name for kNoIndex.
std::string Control_Name_Text(std::string_view name, int index);

/// The control of a window, monostate when there is none of that name.
AnyControl Find_Control(Workspace& w, std::string_view form, const ControlName& control);

/// The window's record; nullptr for a window that does not exist.
Form* Find_Form(Workspace& w, std::string_view form);

}  // namespace sylvomex
