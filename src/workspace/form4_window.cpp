// SPDX-License-Identifier: MIT
// The about window's rows in the table of windows.
#include "workspace/options_window.h"
#include "workspace/window_table.h"

namespace sylvomex {
namespace {

constexpr HandlerRow kHandlers[] = {
    {"OK_Button", Happening::Click, Run<Form4_OK_Button>},
};

}  // namespace

WindowRow Form4_Window() {
  return {"Form4", &kForm4Design, Record<&Workspace::Form4>, {}, kHandlers, "OK_Button"};
}

}  // namespace sylvomex
