// SPDX-License-Identifier: MIT
// The windows of the workstation, each described once: its record, its controls, its menu, its
// handlers, and what closing it does. Look-up by name, dispatch, widgets and scripts are generated
// from these rows.
#pragma once

#include <concepts>
#include <span>
#include <string_view>

#include "state/workspace.h"
#include "workspace/menu_table.h"

namespace sylvomex {

/// The events of a control or of the window itself.
enum class Happening {
  Click,      // a button was pressed, or a check box changed
  KeyPress,   // Enter in a text box
  KeyDown,    // of the window: every key, before the menu; of a focused control: a key not used by
              // the menu, before the control handles it
  MouseDown,  // the pointer was pressed on a picture or on the window's background
  DblClick,   // second press on a picture; without this handler it is a MouseDown
  MouseMove,  // the pointer moves over a control or the window's background
  Wheel,      // the wheel turns over a picture
  Pan,        // a picture is dragged
  Resize,     // new client size; windows with this handler are resizable
};

struct ControlEvent {
  int index = kNoIndex;  // within an array of controls
  int button = 0;        // kLeftButton, kRightButton, kMiddleButton
  int shift = 0;         // mask of kShift, kCtrl, kAlt
  int key_code = 0;      // as in OperatorEvent
  double x = 0, y = 0;   // pane pixels; client pixels for the window itself; of a Pan the distance
  int notches = 0;       // of the wheel
};

inline constexpr const char* kWindowItself = "";

struct HandlerRow {
  const char* control = kWindowItself;  // name without index
  Happening happening = Happening::Click;
  void (*run)(Workspace& w, const ControlEvent& event) = nullptr;
  bool any_button = false;  // of a MouseDown: the middle button is told, too
};

struct WindowRow {
  const char* name = "";
  const WindowDesign* design = nullptr;
  Form& (*record)(Workspace& w) = nullptr;
  std::span<const MenuRow> menu;
  std::span<const HandlerRow> handlers;
  const char* closing = "";  // the menu item or button that the title bar's close button triggers;
                             // if empty, closing hides the window
};

/// All windows, the main one first.
std::span<const WindowRow> All_Windows();

/// nullptr for a window that does not exist.
const WindowRow* Find_Window(std::string_view name);

/// The handler of a control (name without index) or of the window itself; nullptr for none.
const HandlerRow* Find_Handler(const WindowRow& window, std::string_view control,
                               Happening happening);

/// Whether a press of a button on a control or on the window itself is told: the middle one only
/// where a handler asks for any.
bool Takes_Button(const WindowRow& window, std::string_view control, int button);

/// A handler's name in error messages: "Command1_Click", "Form_Resize".
std::string Handler_Name(const HandlerRow& handler);

/// The record of a window, for the rows of All_Windows.
template <auto Member>
Form& Record(Workspace& w) {
  return w.*Member;
}

/// Adapts a command that needs nothing from the event, or only the index of its control.
template <auto Command>
void Run(Workspace& w, [[maybe_unused]] const ControlEvent& event) {
  if constexpr (std::invocable<decltype(Command), Workspace&, int>) {
    Command(w, event.index);
  } else {
    Command(w);
  }
}

// The table's rows, one source file per window.
WindowRow Form1_Window();
WindowRow Form2_Window();
WindowRow Form3_Window();
WindowRow Form4_Window();
WindowRow Form5_Window();
WindowRow Form6_Window();
WindowRow Form7_Window();
WindowRow Form8_Window();

}  // namespace sylvomex
