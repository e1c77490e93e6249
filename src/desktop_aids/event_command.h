// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "workspace/operator_event.h"

namespace sylvomex {

/// The name of the command of the main menu that an event runs, chosen or by its key; empty for
/// another event.
std::string Command_Of(const OperatorEvent& event);

/// The event that chooses a command in the main menu.
OperatorEvent Choosing(const std::string& command);

/// The caption of a command, without its file endings: "Add an image to set"; empty for a name that
/// is not in the main menu.
std::string Plain_Caption(const std::string& command);

}  // namespace sylvomex
