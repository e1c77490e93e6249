// SPDX-License-Identifier: MIT
// The evaluation window's rows in the table of windows.
#include "commands/evaluation/results_window.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr MenuRow kMenu[] = {
    {0, "Window", "Window"},
    {1, "Load_Reference_Trees", "Reference trees from a field tree file", 0, 0, false,
     MenuRole::Command, Load_Reference_Trees},
};

constexpr HandlerRow kHandlers[] = {
    {"Show_Results", Happening::Click, Run<Show_Results>},
    {kWindowItself, Happening::Resize, Run<Form6_Resize>},
};

}  // namespace

WindowRow Form6_Window() {
  return {"Form6", &kForm6Design, Record<&Workspace::Form6>, kMenu, kHandlers};
}

}  // namespace sylvomex
