// SPDX-License-Identifier: MIT
// Names by which a script addresses values: "Label10.ForeColor", "Form3.Text2",
// "ImageBlock(0).Omega".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sylvomex {

/// One part of a dotted name, with its index if any: "Text1(3)".
struct NamePart {
  std::string name;
  std::optional<int> index;
};

/// The parts of a dotted name. Throws UnknownName for a malformed name.
std::vector<NamePart> Split_Name(std::string_view name);

/// "Form1", "Form12": the name of a window.
bool Is_Form_Name(std::string_view name);

/// A control with its window: "Form5.Picture1" is Picture1 of Form5, a plain name belongs to Form1.
struct WindowName {
  std::string form = "Form1";
  std::string control;
};
WindowName Split_Window(std::string_view name);

}  // namespace sylvomex
