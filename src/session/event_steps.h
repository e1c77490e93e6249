// SPDX-License-Identifier: MIT
// Operator events as steps of a script, in both directions.
#pragma once

#include <span>
#include <string>

#include "session/script_reader.h"
#include "workspace/operator_event.h"

namespace sylvomex {

/// The event of a step whose name and number of words have been checked: menu, command, set,
/// press, click, doubleclick, move, key, resize or close. Raises StepEnd for an argument that
/// does not fit.
OperatorEvent Event_Of_Step(std::span<const ScriptWord> words);

/// The step that makes the event again.
std::string Step_Text(const OperatorEvent& event);

}  // namespace sylvomex
