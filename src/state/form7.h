// SPDX-License-Identifier: MIT
#pragma once

#include "state/window_design.h"

namespace sylvomex {

extern const WindowDesign kForm7Design;

/// The distance record.
struct Form7State : Form {
  Form7State();

  Label Label1, Label2;  // captions of Text1, Text2
  TextBox Text1, Text2;
  Label Label3, Label4, Label5;  // X, Y, Z of entry 0
  Table<Label, 0, 13> Heading;   // column captions
  // Rows of the nine entries, one label per column.
  Table<Label, 0, 8> IndexLabel, ImageCodeLabel, X0Label, X1Label, Y0Label, Y1Label, ScaleLabel,
      DistanceLabel, SunElevationLabel, SunAzimuthLabel, RayAzimuthLabel, DifferenceLabel,
      OffNadirLabel;
  Table<TextBox, 0, 8> Text3;  // ObsCoding
  Button Command1, Command2, Command3;
};

}  // namespace sylvomex
