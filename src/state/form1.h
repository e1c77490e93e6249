// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm1Design;

/// The main window.
struct Form1State : Form {
  Form1State();

  Label ResultsCaption;       // "Space intersection results:"
  Table<Label, 0, 2> Label7;  // captions of the solution
  Table<Label, 0, 2> Label4;  // values of the solution
  Label Label2;               // measurement number
  Label Label10;              // program status
  Label Label3;               // hint
  CheckBox Check4, Check3, MeasureDistancesCheckBox, Check5;
  TextBox Text4, Text5, Text6, Text7, Text8, Text9, Text2, Text3, Text10;
  Table<Label, 0, 8> ParameterLabel;  // right of the nine boxes, in their order
  Label SpeciesLabel;
  Table<CheckBox, 0, 3> Check2;
  Table<Divider, 0, 9> Line;
  Table<Picture, 0, 8> Picture1;
  Table<TextBox, 0, 17> Text1;  // 2k: x, 2k + 1: y of image k
  Table<TextBox, 0, 8> Text12;
  Table<Label, 0, 8> Label1;
  Table<CheckBox, 0, 8> Check1;
};

}  // namespace sylvomex
