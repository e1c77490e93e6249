// SPDX-License-Identifier: MIT
// The controls of the windows as plain records. Windows mirror them; commands read and write
// them. Positions are pixels of the window's client area, from its top left corner.
#pragma once

#include <cstdint>
#include <string>

#include "platform/colour.h"

namespace sylvomex {

enum class PointerShape : std::uint8_t { Normal, Hourglass, Custom };

struct Control {
  double Left = 0, Top = 0, Width = 0, Height = 0;
  bool Visible = true;
  bool Enabled = true;
};

struct Label : Control {
  std::string Caption;
  Colour ForeColor;
  double FontSize = 8;
  bool FontBold = false;
};

struct TextBox : Control {
  std::string Text;
};

struct CheckBox : Control {
  std::string Caption;
  int Value = 0;  // 0 or 1
};

/// One of the choices of a window: choosing it unselects the others.
struct OptionButton : Control {
  std::string Caption;
  int Value = 0;  // 0 or 1
};

struct Button : Control {
  std::string Caption;
};

/// A dividing line in the main window's strip.
struct Divider : Control {};

}  // namespace sylvomex
