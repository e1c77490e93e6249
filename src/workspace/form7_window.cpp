// SPDX-License-Identifier: MIT
// The distance record window's rows in the table of windows.
#include "commands/solver/distance_window.h"
#include "workspace/operator_event.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr MenuRow kMenu[] = {
    {0, "Window", "Window"},
    {1, "Save_and_Close", "Close, Save and Reset", 'S', kCtrl, false, MenuRole::Command,
     Form7_Save_Close_And_Reset},
    {1, "Reset_and_Close", "Close and Reset", 'A', kCtrl, false, MenuRole::Command,
     Form7_Reset_And_Close},
    {1, "Close_No_Save", "Close (just)", 'Z', kCtrl, false, MenuRole::Command,
     Form7_Return_To_Main},
};

constexpr HandlerRow kHandlers[] = {
    {"Command1", Happening::Click, Run<Form7_Save_Close_And_Reset>},
    {"Command2", Happening::Click, Run<Form7_Reset_And_Close>},
    {"Command3", Happening::Click, Run<Form7_Return_To_Main>},
    {"Text1", Happening::KeyPress, Run<Form7_Text1_Enter>},
    {"Text2", Happening::KeyDown, Run<Form7_Text2_First_Key>},
    {"Text2", Happening::KeyPress, Run<Form7_Text2_Enter>},
    {"Text3", Happening::KeyPress, Run<Form7_Text3_Enter>},
};

}  // namespace

WindowRow Form7_Window() {
  return {"Form7", &kForm7Design, Record<&Workspace::Form7>, kMenu, kHandlers, "Close_No_Save"};
}

}  // namespace sylvomex
