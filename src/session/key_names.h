// SPDX-License-Identifier: MIT
// Keys as scripts name them: "A" or "a", "7", "num4", "F2", "Enter", "Escape", "Space",
// "Tab", "Delete", "Backspace", "Left", "Up", "Right", "Down"; "code191" for any other key.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sylvomex {

/// The key code of a name; std::nullopt for an unknown name.
std::optional<int> Key_Code(std::string_view name);

/// The name of a key code.
std::string Key_Name(int key_code);

}  // namespace sylvomex
