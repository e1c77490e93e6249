// SPDX-License-Identifier: MIT
// From an event of the operator to the handlers in the table of windows.
#pragma once

#include <functional>
#include <string>

#include "workspace/operator_event.h"
#include "workspace/window_table.h"

namespace sylvomex {

enum class EventOutcome {
  Done,
  Greyed,  // the menu item is greyed and was not run
  Error,   // the command ended in a failure, which Screen::Report_Error has shown
};

/// Runs the handler of an event to its end. A failure that passes the handler is caught here,
/// shown once through Screen::Report_Error, and leaves no pointer shape behind. Raises
/// UnknownName only.
EventOutcome Handle_Event(Workspace& w, const OperatorEvent& event);

/// The same for an event of a window that is at hand.
EventOutcome Handle_Window_Event(Workspace& w, const WindowRow& window, const OperatorEvent& event);

/// Runs a handler with the failure report that every event has, under the handler's name.
EventOutcome Run_Handler(Workspace& w, const std::string& name,
                         const std::function<void()>& handler);

/// What the close button in a window's title bar does.
OperatorEvent Close_Event(const WindowRow& window);

}  // namespace sylvomex
