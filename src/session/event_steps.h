// SPDX-License-Identifier: MIT
// Conversion between operator events and script steps, in both directions.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "session/script_reader.h"
#include "workspace/operator_event.h"

namespace sylvomex {

/// The event of a step whose name and number of words have been checked: menu, command, set,
/// press, click, doubleclick, move, key, resize or close. Throws StepEnd for an invalid
/// argument.
OperatorEvent Event_Of_Step(std::span<const ScriptWord> words);

/// Whether a step of that name is an event.
bool Is_Event_Step(std::string_view name);

/// The step that reproduces the event.
std::string Step_Text(const OperatorEvent& event);

}  // namespace sylvomex
