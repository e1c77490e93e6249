// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "workspace/operator_event.h"

namespace sylvomex {

struct MenuRow;

/// What an event did, in the operator's words: "Click in image 3", "Point Intersection, N>1
/// images", "Key U".
std::string Event_Words(const OperatorEvent& event);

/// The menu item that an event chooses, by hand or by its key; nullptr for none.
const MenuRow* Chosen_Item(const OperatorEvent& event);

}  // namespace sylvomex
