// SPDX-License-Identifier: MIT
// Dispatch of operator events to the handlers in the table of windows.
#pragma once

#include <functional>
#include <string>

#include "workspace/operator_event.h"
#include "workspace/window_table.h"

namespace sylvomex {

enum class EventOutcome {
  Done,
  Greyed,     // the menu item is greyed and was not run
  Error,      // the command ended in an error, already shown by Screen::Report_Error
  Cancelled,  // whoever watches the thread has ended the command; see platform/work_meter.h
};

/// Handlers that may run inside one another; the one after them ends with an error.
inline constexpr int kMostNestedHandlers = 100;

/// Runs the handler of an event to its end. An exception that leaves the handler is caught here,
/// shown once through Screen::Report_Error, and the normal pointer is restored. Throws
/// UnknownName only.
EventOutcome Handle_Event(Workspace& w, const OperatorEvent& event);

/// The same for an event of a known window.
EventOutcome Handle_Window_Event(Workspace& w, const WindowRow& window, const OperatorEvent& event);

/// Runs a handler with the error report that every event has, under the handler's name.
EventOutcome Run_Handler(Workspace& w, const std::string& name,
                         const std::function<void()>& handler);

/// The event that stands for the close button in a window's title bar.
OperatorEvent Close_Event(const WindowRow& window);

}  // namespace sylvomex
