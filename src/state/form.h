// SPDX-License-Identifier: MIT
// What the records of all windows have in common.
#pragma once

#include <cstdint>
#include <string>

#include "platform/table.h"
#include "state/control.h"
#include "state/picture.h"

namespace sylvomex {

struct Form {
  std::string Title;
  double ClientWidth = 0;
  double ClientHeight = 0;
  bool Visible = false;
  bool Enabled = true;
  PointerShape MousePointer = PointerShape::Normal;
  std::string ActiveControl;  // name of the control that last received the focus, with its index:
                              // "Text3(0)"
  std::uint64_t focus_version = 0;  // incremented whenever a command moves the focus
};

void Set_Focus(Form& form, const std::string& control);

}  // namespace sylvomex
