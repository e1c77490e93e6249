// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm5Design;

/// The anaglyph viewer.
struct Form5State : Form {
  Form5State();

  Label Label1;  // the mark
  Picture Picture1;
};

}  // namespace sylvomex
