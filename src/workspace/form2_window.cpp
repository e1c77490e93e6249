// SPDX-License-Identifier: MIT
// The options window's rows in the table of windows.
#include "workspace/options_window.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr MenuRow kMenu[] = {
    {0, "Window", "Window"},
    {1, "Apply", "Apply Changes and Close", 0, 0, false, MenuRole::Command, Form2_Apply},
    {1, "close_window", "Close Without Applying Changes", 0, 0, false, MenuRole::Command,
     Form2_Close_Window},
};

constexpr HandlerRow kHandlers[] = {
    {"Apply_Options_Changes", Happening::Click, Run<Apply_Options_Changes>},
};

}  // namespace

WindowRow Form2_Window() {
  return {"Form2", &kForm2Design, Record<&Workspace::Form2>, kMenu, kHandlers, "close_window"};
}

}  // namespace sylvomex
