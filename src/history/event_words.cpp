// SPDX-License-Identifier: MIT
#include "history/event_words.h"

#include <algorithm>
#include <string_view>

#include "workspace/control_lookup.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

using Kind = OperatorEvent::Kind;

std::string Modifiers_Text(int shift) {
  std::string text;
  if ((shift & kShift) != 0) text += "Shift+";
  if ((shift & kCtrl) != 0) text += "Ctrl+";
  if ((shift & kAlt) != 0) text += "Alt+";
  return text;
}

std::string Key_Words(const OperatorEvent& event) {
  constexpr int kKeyPadZero = 96;
  constexpr int kF1 = 112;
  const int code = event.key_code;
  const std::string key = "Key " + Modifiers_Text(event.shift);
  if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9')) {
    return key + static_cast<char>(code);
  }
  if (code >= kKeyPadZero && code < kKeyPadZero + 10) {
    return key + std::to_string(code - kKeyPadZero) + " of the key pad";
  }
  return code >= kF1 && code < kF1 + 12 ? key + "F" + std::to_string(code - kF1 + 1) : "Key";
}

// The boxes of an image, by the image: "x of image 3".
std::string Box_Words(const OperatorEvent& event) {
  const auto control = Parse_Control_Name(event.control);
  const bool of_main = event.form == "Form1" && control && control->index != kNoIndex;
  const std::string index = of_main ? std::to_string(control->index) : "";
  if (of_main && control->name == "Text1") {
    return std::string(control->index % 2 == 0 ? "x" : "y") + " of image " +
           std::to_string(control->index / 2);
  }
  if (of_main && control->name == "Check1") return "Use of image " + index;
  if (of_main && control->name == "Text12") return "Third box of image " + index;
  return (event.form == "Form1" ? "" : event.form + ".") + event.control;
}

std::string Click_Words(const OperatorEvent& event) {
  std::string click = Modifiers_Text(event.shift) + "click in ";
  click[0] = static_cast<char>(click[0] == 'c' ? 'C' : click[0]);
  const auto control = Parse_Control_Name(event.control);
  const bool in_pane = event.form == "Form1" && control && control->index != kNoIndex;
  return click + (in_pane ? "image " + std::to_string(control->index) : event.form);
}

std::string Button_Words(const OperatorEvent& event) {
  const WindowRow* window = Find_Window(event.form);
  const auto name = Parse_Control_Name(event.control);
  if (window == nullptr || !name) return event.control;
  const auto row = std::ranges::find_if(window->design->controls, [&](const ControlRow& control) {
    return name->name == control.name;
  });
  const bool has_caption = row != window->design->controls.end() && *row->item.text != '\0';
  return has_caption ? row->item.text : Box_Words(event);
}

bool Is_Key_Of(const MenuRow& row, const OperatorEvent& event) {
  return row.key_code != 0 && !row.greyed && row.key_code == event.key_code &&
         row.key_shift == event.shift;
}

}  // namespace

const MenuRow* Chosen_Item(const OperatorEvent& event) {
  const WindowRow* window = Find_Window(event.form);
  if (window == nullptr) return nullptr;
  if (event.kind == Kind::Menu || event.kind == Kind::Command) {
    return Find_Menu_Row(window->menu, event.control);
  }
  if (event.kind != Kind::Key) return nullptr;
  const auto row = std::ranges::find_if(
      window->menu, [&](const MenuRow& item) { return Is_Key_Of(item, event); });
  return row == window->menu.end() ? nullptr : &*row;
}

std::string Event_Words(const OperatorEvent& event) {
  if (const MenuRow* row = Chosen_Item(event)) return row->caption;
  switch (event.kind) {
    case Kind::Set:
      return Box_Words(event);
    case Kind::Press:
      return Button_Words(event);
    case Kind::Click:
    case Kind::DoubleClick:
      return Click_Words(event);
    case Kind::Key:
      return Key_Words(event);
    default:
      return event.form;
  }
}

}  // namespace sylvomex
