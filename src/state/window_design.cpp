// SPDX-License-Identifier: MIT
#include "state/window_design.h"

namespace sylvomex {
namespace {

ControlItem Item_Of(const ControlRow& row, int index) {
  const int steps = index - row.first;
  if (!row.items.empty()) return row.items[static_cast<std::size_t>(steps)];
  ControlItem item = row.item;
  item.place.left += steps * row.step.right;
  item.place.top += steps * row.step.down;
  return item;
}

template <class SomeControl>
void Design(SomeControl& control, const ControlItem& item, bool shown) {
  control.Left = item.place.left;
  control.Top = item.place.top;
  control.Width = item.place.width;
  control.Height = item.place.height;
  control.Visible = shown;
  control.Enabled = shown;
  if constexpr (requires { control.Caption; }) control.Caption = item.text;
  if constexpr (requires { control.Text; }) control.Text = item.text;
}

}  // namespace

void Set_Focus(Form& form, const std::string& control) {
  form.ActiveControl = control;
  ++form.focus_version;
}

void Apply_Design(Form& form, const WindowDesign& design) {
  form.Title = design.title;
  form.ClientWidth = design.client_width;
  form.ClientHeight = design.client_height;
  Visit_Controls(form, design.controls, [](const ControlRow& row, int index, AnyControl any) {
    std::visit(
        [&](auto control) {
          if constexpr (requires { control->Left; }) {
            Design(*control, Item_Of(row, index), row.shown);
          }
        },
        any);
  });
}

AnyControl Find_Control(Form& form, const WindowDesign& design, std::string_view name, int index) {
  for (const ControlRow& row : design.controls) {
    if (row.name == name && index >= row.first && index <= row.last) {
      return row.control(form, index);
    }
  }
  return {};
}

}  // namespace sylvomex
