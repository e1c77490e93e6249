// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>

namespace sylvomex {

/// kShift, kCtrl and kAlt of the modifier keys.
int Shift_Mask(Qt::KeyboardModifiers modifiers);

/// The key code of an OperatorEvent; 0 for a key that is not passed on: Enter, which presses its
/// text box, Tab, which moves the focus, and keys without a code.
int Event_Key_Code(const QKeyEvent& key);

}  // namespace sylvomex
