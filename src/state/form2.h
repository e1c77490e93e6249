// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm2Design;

/// The options.
struct Form2State : Form {
  Form2State();

  Label Label1, Label2, Label3, Label4, Label5, Label6, Label7, Label8, Label9, Label10, Label11,
      Label12, Label13, Label14, Label15, Label16;
  TextBox Text1, Text2, Text3, Text4, Text5, Text6, Text7, Text8, Text9, Text10, Text11, Text12,
      Text13, Text14, Text15, Text16;
  CheckBox Check1, Check2, Check3;
  Button Apply_Options_Changes;
};

}  // namespace sylvomex
