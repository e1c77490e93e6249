// SPDX-License-Identifier: MIT
// The windows' designs: a table of control rows for each. A window's record, its look-up by name,
// its widgets and its scripts are all made from its rows.
//
// Rows stand in tab order; where controls overlap, the later one lies on top.
#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "state/form.h"

namespace sylvomex {

using AnyControl = std::variant<std::monostate, Label*, TextBox*, CheckBox*, OptionButton*, Button*,
                                Picture*, Divider*>;

/// Pixels of the client area.
struct ControlPlace {
  double left = 0, top = 0, width = 0, height = 0;
};

/// Distance from one control of an array to the next, pixels.
struct ControlStep {
  double right = 0, down = 0;
};

struct ControlItem {
  const char* text = "";  // the caption, or the start text of a text box
  ControlPlace place;
};

inline constexpr int kNoIndex = -1;

/// One control, or an array of controls under one name.
struct ControlRow {
  const char* name = "";
  AnyControl (*control)(Form& form, int index) = nullptr;
  int first = kNoIndex, last = kNoIndex;  // indices of an array
  ControlItem item;                       // of the first control
  ControlStep step;
  std::span<const ControlItem> items;  // individual items of an array, instead of item and step
  bool shown = true;                   // false: starts invisible and disabled
};

struct WindowDesign {
  const char* title = "";
  double client_width = 0, client_height = 0;      // pixels
  std::span<const ControlRow> controls;            // each name occurs once
  double smallest_width = 0, smallest_height = 0;  // of the whole window, when resizable
};

/// Sets a window's title and size and its controls' texts and places.
void Apply_Design(Form& form, const WindowDesign& design);

/// The control of a window; monostate when it has none of that name and index.
AnyControl Find_Control(Form& form, const WindowDesign& design, std::string_view name, int index);

/// Calls visit(row, index, control) for every control of a window, in row order; index is kNoIndex
/// for a single control. form: the record that the rows describe.
template <class Visitor>
void Visit_Controls(Form& form, std::span<const ControlRow> rows, Visitor&& visit) {
  for (const ControlRow& row : rows) {
    for (int index = row.first; index <= row.last; ++index) {
      visit(row, index, row.control(form, index));
    }
  }
}

}  // namespace sylvomex
