// SPDX-License-Identifier: MIT
// The map window in the table of windows.
#include "commands/mapview/map_window.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

void Map_Pressed(Workspace& w, const ControlEvent& event) {
  Form8_Picture1_MouseDown(w, event.button, event.x, event.y);
}

void Map_Pointed(Workspace& w, const ControlEvent& event) {
  Form8_Picture1_MouseMove(w, event.x, event.y);
}

constexpr MenuRow kMenu[] = {
    {0, "File", "File"},
    {1, "Open_a_Map", "Open a MAP (*.hdr)", 0, 0, false, MenuRole::Command, Open_a_Map},
    {1, "Exit_Map_Window", "Exit Map Window", 0, 0, false, MenuRole::Command, Exit_Map_Window},
};

constexpr HandlerRow kHandlers[] = {
    {"Picture1", Happening::MouseDown, Map_Pressed, true},
    {"Picture1", Happening::MouseMove, Map_Pointed},
    {kWindowItself, Happening::Resize, Run<Form8_Resize>},
};

}  // namespace

WindowRow Form8_Window() {
  return {"Form8", &kForm8Design, Record<&Workspace::Form8>, kMenu, kHandlers, "Exit_Map_Window"};
}

}  // namespace sylvomex
