// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm8Design;

/// The map window.
struct Form8State : Form {
  Form8State();

  Label Label1;          // what the pointer shows: map pixel and ground position
  Label Label2;          // the zoom
  OptionButton Option1;  // read by nothing
  Picture Picture1;      // the map
};

}  // namespace sylvomex
