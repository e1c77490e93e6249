// SPDX-License-Identifier: MIT
#include <concepts>

#include "session/block_values.h"
#include "session/value_text.h"
#include "workspace/control_lookup.h"

namespace sylvomex {

namespace {

using Found = std::optional<std::string>;

Found Own_Value(const Label& label) { return label.Caption; }
Found Own_Value(const TextBox& box) { return box.Text; }
Found Own_Value(const CheckBox& box) { return Value_Text(box.Value); }
Found Own_Value(const OptionButton& option) { return Value_Text(option.Value); }
Found Own_Value(const Button& button) { return button.Caption; }
Found Own_Value(const Control&) { return std::nullopt; }

Found Place_Property(const Control& control, std::string_view property) {
  if (property == "Left") return Value_Text(control.Left);
  if (property == "Top") return Value_Text(control.Top);
  if (property == "Width") return Value_Text(control.Width);
  if (property == "Height") return Value_Text(control.Height);
  if (property == "Visible") return Value_Text(control.Visible);
  if (property == "Enabled") return Value_Text(control.Enabled);
  return std::nullopt;
}

template <class SomeControl>
Found Property(const SomeControl& control, std::string_view property) {
  if constexpr (requires { control.Caption; }) {
    if (property == "Caption") return control.Caption;
  }
  if constexpr (requires { control.Text; }) {
    if (property == "Text") return control.Text;
  }
  if constexpr (requires { control.Value; }) {
    if (property == "Value") return Value_Text(control.Value);
  }
  if constexpr (requires { control.FontSize; }) {
    if (property == "ForeColor") return Value_Text(control.ForeColor);
    if (property == "FontSize") return Value_Text(control.FontSize);
    if (property == "FontBold") return control.FontBold ? "1" : "0";
  }
  return Place_Property(control, property);
}

Found Form_Property(const Form& form, std::string_view property) {
  if (property == "Visible") return Value_Text(form.Visible);
  if (property == "Enabled") return Value_Text(form.Enabled);
  if (property == "Caption") return form.Title;
  if (property == "Width") return Value_Text(form.ClientWidth);
  if (property == "Height") return Value_Text(form.ClientHeight);
  return std::nullopt;
}

/// property: empty for the control's own value.
Found Value_Of(const AnyControl& control, std::string_view property) {
  return std::visit(
      [&](auto found) -> Found {
        if constexpr (std::same_as<decltype(found), std::monostate>) {
          return std::nullopt;
        } else {
          return property.empty() ? Own_Value(*found) : Property(*found, property);
        }
      },
      control);
}

}  // namespace

Found Control_Value(Workspace& w, const std::vector<NamePart>& name) {
  const bool in_window = Is_Form_Name(name.front().name);
  const std::string form = in_window ? name.front().name : "Form1";
  const std::size_t first = in_window ? 1 : 0;
  if (first >= name.size() || name.size() > first + 2) return std::nullopt;
  const NamePart& asked = name[first];
  const std::string property = first + 1 < name.size() ? name.back().name : "";
  const AnyControl control = Find_Control(w, form, {asked.name, asked.index.value_or(-1)});
  if (!std::holds_alternative<std::monostate>(control)) return Value_Of(control, property);
  const Form* const window = Find_Form(w, form);
  if (window == nullptr || !in_window || !property.empty()) return std::nullopt;
  return Form_Property(*window, asked.name);
}

}  // namespace sylvomex
