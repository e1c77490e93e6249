// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm6Design;

/// The evaluation of a tree-top run.
struct Form6State : Form {
  Form6State();

  Button Show_Results;
  Label Label1;                   // the reference trees
  Label Label2;                   // clusters and the counts of the classes
  Label Label3;                   // meaning of the classes
  Label Label4;                   // meaning of the errors
  Table<Picture, 0, 5> Picture1;  // graphs 1 to 6
  bool GraphsShown = false;
};

}  // namespace sylvomex
