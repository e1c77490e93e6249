// SPDX-License-Identifier: MIT
// The observation record window's rows in the table of windows.
#include "commands/solver/observation_window.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr MenuRow kMenu[] = {
    {0, "Window", "Window"},
    {1, "A_and_s", "Accept save and close", 0, 0, false, MenuRole::Command, Form3_Accept_And_Save},
    {1, "C_and_c", "Cancel and close", 0, 0, false, MenuRole::Command, Form3_Cancel},
};

constexpr HandlerRow kHandlers[] = {
    {"Accept_And_Save_Button", Happening::Click, Run<Form3_Accept_And_Save>},
    {"Cancel_Button", Happening::Click, Run<Form3_Cancel>},
    {"Text2", Happening::KeyPress, Run<Form3_Accept_And_Save>},
    {"Text3", Happening::KeyPress, Run<Form3_Accept_And_Save>},
    {"Text4", Happening::KeyPress, Run<Form3_Accept_And_Save>},
};

}  // namespace

WindowRow Form3_Window() {
  return {"Form3", &kForm3Design, Record<&Workspace::Form3>, kMenu, kHandlers, "C_and_c"};
}

}  // namespace sylvomex
