// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm3Design;

/// The observation record.
struct Form3State : Form {
  Form3State();

  Label Label1, Label2, Label3, Label4, Label5;  // captions of Text1 to Text5
  TextBox Text1, Text2, Text3, Text4, Text5;
  Label Label6;                // DemZ
  Label Label7;                // X
  Label Label8;                // Y
  Label Label9;                // Z
  Label Label10;               // Rmse
  Label Label11;               // ImageCount
  Label Label12;               // image ids
  Label Label13;               // columns
  Label Label14;               // rows
  Table<Label, 0, 5> Caption;  // captions left of the read-only labels
  Button Accept_And_Save_Button, Cancel_Button;
};

}  // namespace sylvomex
