// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm4Design;

/// About.
struct Form4State : Form {
  Form4State();

  Label Label1;
  Button OK_Button;
};

}  // namespace sylvomex
