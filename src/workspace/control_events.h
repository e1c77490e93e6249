// SPDX-License-Identifier: MIT
// Events of text boxes, check boxes, option buttons and buttons.
#pragma once

#include <string>

#include "workspace/control_lookup.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {

/// Runs the handler of a control, or of the window itself; does nothing when the table has none.
EventOutcome Tell_Control(Workspace& w, const WindowRow& window, const std::string& control,
                          Happening happening, const ControlEvent& event);

/// The control of a window, monostate when it has none of that name.
AnyControl Control_Of(Workspace& w, const WindowRow& window, const ControlName& control);

/// Types into a text box, sets a check box ("0" or "1") or chooses an option button ("1"), with the
/// click event fired by a change. UnknownName for anything else.
EventOutcome Set_Control(Workspace& w, const WindowRow& window, const ControlName& control,
                         const std::string& text);

/// Presses a button, or Enter in a text box. UnknownName for anything else.
EventOutcome Press_Control(Workspace& w, const WindowRow& window, const ControlName& control);

/// Sends a key to the focused control ("Text3(0)", or empty for none); Enter presses it.
EventOutcome Key_In_Control(Workspace& w, const WindowRow& window, const std::string& focus,
                            const ControlEvent& key);

}  // namespace sylvomex
