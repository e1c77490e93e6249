// SPDX-License-Identifier: MIT
#include "workspace/window_table.h"

#include <array>
#include <string>

#include "workspace/operator_event.h"

namespace sylvomex {
namespace {

const char* Suffix(Happening happening) {
  switch (happening) {
    case Happening::Click:
      return "_Click";
    case Happening::KeyPress:
      return "_KeyPress";
    case Happening::KeyDown:
      return "_KeyDown";
    case Happening::MouseDown:
      return "_MouseDown";
    case Happening::DblClick:
      return "_DblClick";
    case Happening::MouseMove:
      return "_MouseMove";
    case Happening::Wheel:
      return "_Wheel";
    case Happening::Pan:
      return "_Pan";
    case Happening::Resize:
      return "_Resize";
  }
  return "";
}

}  // namespace

std::span<const WindowRow> All_Windows() {
  static const std::array kWindows{
      Form1_Window(), Form2_Window(), Form3_Window(), Form4_Window(),
      Form5_Window(), Form6_Window(), Form7_Window(), Form8_Window(),
  };
  return kWindows;
}

const WindowRow* Find_Window(std::string_view name) {
  for (const WindowRow& window : All_Windows()) {
    if (name == window.name) return &window;
  }
  return nullptr;
}

const HandlerRow* Find_Handler(const WindowRow& window, std::string_view control,
                               Happening happening) {
  for (const HandlerRow& row : window.handlers) {
    if (control == row.control && happening == row.happening) return &row;
  }
  return nullptr;
}

bool Takes_Button(const WindowRow& window, std::string_view control, int button) {
  if (button != kMiddleButton) return true;
  const HandlerRow* handler = Find_Handler(window, control, Happening::MouseDown);
  return handler != nullptr && handler->any_button;
}

std::string Handler_Name(const HandlerRow& handler) {
  const std::string control = handler.control;
  return (control.empty() ? "Form" : control) + Suffix(handler.happening);
}

}  // namespace sylvomex
