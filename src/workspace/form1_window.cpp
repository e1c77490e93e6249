// SPDX-License-Identifier: MIT
// The main window's rows in the table of windows.
#include "workspace/form_resize.h"
#include "workspace/keys.h"
#include "workspace/menu_modes.h"
#include "workspace/pointer.h"
#include "workspace/pointer_view.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

void Key(Workspace& w, const ControlEvent& event) { Form_KeyDown(w, event.key_code, event.shift); }

void Pane_Pressed(Workspace& w, const ControlEvent& event) {
  Picture1_MouseDown(w, event.index, event.button, event.shift, event.x, event.y);
}

void Pane_Pointed(Workspace& w, const ControlEvent& event) {
  Picture1_MouseMove(w, event.index, event.x, event.y);
}

void Wheel_Turned(Workspace& w, const ControlEvent& event) {
  Picture1_Wheel(w, event.index, event.notches, event.shift, event.x, event.y);
}

void Pane_Dragged(Workspace& w, const ControlEvent& event) {
  Picture1_Pan(w, event.index, event.shift, event.x, event.y);
}

constexpr HandlerRow kHandlers[] = {
    {kWindowItself, Happening::KeyDown, Key},
    {kWindowItself, Happening::MouseMove, Run<Form_MouseMove>},
    {kWindowItself, Happening::Resize, Run<Form_Resize>},
    {"Picture1", Happening::MouseDown, Pane_Pressed},
    {"Picture1", Happening::MouseMove, Pane_Pointed},
    {"Picture1", Happening::Wheel, Wheel_Turned},
    {"Picture1", Happening::Pan, Pane_Dragged},
    {"MeasureDistancesCheckBox", Happening::Click, Run<MeasureDistancesCheckBox_Click>},
    {"MeasureDistancesCheckBox", Happening::MouseMove, Run<MeasureDistancesCheckBox_MouseMove>},
    {"Check2", Happening::Click, Run<Check2_Click>},
    {"Check5", Happening::Click, Run<Check5_Click>},
};

}  // namespace

WindowRow Form1_Window() {
  return {"Form1", &kForm1Design, Record<&Workspace::Form1>, Main_Menu(), kHandlers, "Exit"};
}

}  // namespace sylvomex
