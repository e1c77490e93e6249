// SPDX-License-Identifier: MIT
// Events of text boxes, check boxes and buttons.
#pragma once

#include <functional>
#include <string>

#include "workspace/control_lookup.h"
#include "workspace/operator_event.h"

namespace sylvomex {

/// Types into a text box, or sets a check box ("0" or "1") with the click event that a change
/// fires. UnknownName for anything else.
EventOutcome Set_Control(Workspace& w, const std::string& form, const ControlName& control,
                         const std::string& text);

/// Presses a button, or Enter in a text box. UnknownName for anything else.
EventOutcome Press_Control(Workspace& w, const std::string& form, const ControlName& control);

/// The pointer moves over a control that is not a picture.
EventOutcome Move_Over_Control(Workspace& w, const std::string& form, const ControlName& control);

/// A key in a window other than the main one: its accelerators, and Enter in its boxes. The
/// event's control, when given, is the one that has the focus.
EventOutcome Secondary_Window_Key(Workspace& w, const OperatorEvent& event);

/// Runs a handler with the failure report that every event has.
EventOutcome Run_Handler(Workspace& w, const std::string& name,
                         const std::function<void()>& handler);

}  // namespace sylvomex
