// SPDX-License-Identifier: MIT
#include "workspace/control_lookup.h"

#include <charconv>

namespace sylvomex {
namespace {

template <class FormState>
AnyControl Find_In(FormState& form, const ControlName& wanted) {
  AnyControl found;
  Visit_Controls(form, [&](const char* name, int index, auto& control) {
    if (wanted.index == index && wanted.name == name) found = &control;
  });
  return found;
}

}  // namespace

std::optional<ControlName> Parse_Control_Name(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos) return ControlName{std::string(text), -1};
  if (text.back() != ')') return std::nullopt;
  const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
  int index = -1;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (error != std::errc() || end != digits.data() + digits.size() || index < 0) {
    return std::nullopt;
  }
  return ControlName{std::string(text.substr(0, open)), index};
}

AnyControl Find_Control(Workspace& w, std::string_view form, const ControlName& control) {
  if (form == "Form1") return Find_In(w.Form1, control);
  if (form == "Form2") return Find_In(w.Form2, control);
  if (form == "Form3") return Find_In(w.Form3, control);
  if (form == "Form4") return Find_In(w.Form4, control);
  if (form == "Form7") return Find_In(w.Form7, control);
  return {};
}

Form* Find_Form(Workspace& w, std::string_view form) {
  if (form == "Form1") return &w.Form1;
  if (form == "Form2") return &w.Form2;
  if (form == "Form3") return &w.Form3;
  if (form == "Form4") return &w.Form4;
  if (form == "Form7") return &w.Form7;
  return nullptr;
}

}  // namespace sylvomex
