// SPDX-License-Identifier: MIT
// The windows as records: every control under its own name. A constructor gives a window
// its captions, start values and design positions; Visit_Controls names every control.
#pragma once

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
  std::string ActiveControl;        // name of the control that was last given the focus, with
                                    // its index: "Text3(0)"
  std::uint64_t focus_version = 0;  // grows whenever a command moves the focus
};

void Set_Focus(Form& form, const std::string& control);

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
  Table<Label, 0, 5> Caption;  // what stands left of the read-only labels
  Button Accept_And_Save_Button, Cancel_Button;
};

/// About.
struct Form4State : Form {
  Form4State();

  Label Label1;
  Button OK_Button;
};

/// The distance record.
struct Form7State : Form {
  Form7State();

  Label Label1, Label2;  // captions of Text1, Text2
  TextBox Text1, Text2;
  Label Label3, Label4, Label5;  // X, Y, Z of entry 0
  Table<Label, 0, 13> Heading;   // column captions
  // Rows of the nine entries, one label a column.
  Table<Label, 0, 8> IndexLabel, ImageCodeLabel, X0Label, X1Label, Y0Label, Y1Label, ScaleLabel,
      DistanceLabel, SunElevationLabel, SunAzimuthLabel, RayAzimuthLabel, DifferenceLabel,
      OffNadirLabel;
  Table<TextBox, 0, 8> Text3;  // ObsCoding
  Button Command1, Command2, Command3;
};

namespace forms_detail {
template <class Controls, class Visitor>
void Visit_Indexed(const char* name, Controls& controls, Visitor&& visit) {
  int index = Controls::kFirst;
  for (auto& control : controls) visit(name, index++, control);
}
}  // namespace forms_detail

/// Calls visit(name, index, control) for every control of a window, in tab order; index is -1
/// for a control without one.
template <class Visitor>
void Visit_Controls(Form1State& form, Visitor&& visit) {
  using forms_detail::Visit_Indexed;
  Visit_Indexed("Line", form.Line, visit);
  visit("ResultsCaption", -1, form.ResultsCaption);
  Visit_Indexed("Label7", form.Label7, visit);
  Visit_Indexed("Label4", form.Label4, visit);
  visit("Label2", -1, form.Label2);
  visit("Label10", -1, form.Label10);
  visit("Label3", -1, form.Label3);
  visit("Check4", -1, form.Check4);
  visit("Check3", -1, form.Check3);
  visit("MeasureDistancesCheckBox", -1, form.MeasureDistancesCheckBox);
  visit("Text4", -1, form.Text4);
  visit("Text5", -1, form.Text5);
  visit("Text6", -1, form.Text6);
  visit("Text7", -1, form.Text7);
  visit("Text8", -1, form.Text8);
  visit("Text9", -1, form.Text9);
  visit("Text2", -1, form.Text2);
  visit("Text3", -1, form.Text3);
  visit("Text10", -1, form.Text10);
  Visit_Indexed("ParameterLabel", form.ParameterLabel, visit);
  visit("SpeciesLabel", -1, form.SpeciesLabel);
  Visit_Indexed("Check2", form.Check2, visit);
  visit("Check5", -1, form.Check5);
  Visit_Indexed("Picture1", form.Picture1, visit);
  Visit_Indexed("Text1", form.Text1, visit);
  Visit_Indexed("Text12", form.Text12, visit);
  Visit_Indexed("Label1", form.Label1, visit);
  Visit_Indexed("Check1", form.Check1, visit);
}

template <class Visitor>
void Visit_Controls(Form2State& form, Visitor&& visit) {
  visit("Label1", -1, form.Label1);
  visit("Label2", -1, form.Label2);
  visit("Label3", -1, form.Label3);
  visit("Label4", -1, form.Label4);
  visit("Label5", -1, form.Label5);
  visit("Label6", -1, form.Label6);
  visit("Label7", -1, form.Label7);
  visit("Label8", -1, form.Label8);
  visit("Label9", -1, form.Label9);
  visit("Label10", -1, form.Label10);
  visit("Label11", -1, form.Label11);
  visit("Label12", -1, form.Label12);
  visit("Label13", -1, form.Label13);
  visit("Label14", -1, form.Label14);
  visit("Label15", -1, form.Label15);
  visit("Label16", -1, form.Label16);
  visit("Text1", -1, form.Text1);
  visit("Text2", -1, form.Text2);
  visit("Text3", -1, form.Text3);
  visit("Text4", -1, form.Text4);
  visit("Text5", -1, form.Text5);
  visit("Text6", -1, form.Text6);
  visit("Text7", -1, form.Text7);
  visit("Text8", -1, form.Text8);
  visit("Text9", -1, form.Text9);
  visit("Text10", -1, form.Text10);
  visit("Text11", -1, form.Text11);
  visit("Text12", -1, form.Text12);
  visit("Text13", -1, form.Text13);
  visit("Text14", -1, form.Text14);
  visit("Text15", -1, form.Text15);
  visit("Text16", -1, form.Text16);
  visit("Check1", -1, form.Check1);
  visit("Check2", -1, form.Check2);
  visit("Check3", -1, form.Check3);
  visit("Apply_Options_Changes", -1, form.Apply_Options_Changes);
}

template <class Visitor>
void Visit_Controls(Form3State& form, Visitor&& visit) {
  using forms_detail::Visit_Indexed;
  visit("Label1", -1, form.Label1);
  visit("Label2", -1, form.Label2);
  visit("Label3", -1, form.Label3);
  visit("Label4", -1, form.Label4);
  visit("Label5", -1, form.Label5);
  visit("Label6", -1, form.Label6);
  visit("Label7", -1, form.Label7);
  visit("Label8", -1, form.Label8);
  visit("Label9", -1, form.Label9);
  visit("Label10", -1, form.Label10);
  visit("Label11", -1, form.Label11);
  visit("Label12", -1, form.Label12);
  visit("Label13", -1, form.Label13);
  visit("Label14", -1, form.Label14);
  Visit_Indexed("Caption", form.Caption, visit);
  visit("Text1", -1, form.Text1);
  visit("Text2", -1, form.Text2);
  visit("Text3", -1, form.Text3);
  visit("Text4", -1, form.Text4);
  visit("Text5", -1, form.Text5);
  visit("Accept_And_Save_Button", -1, form.Accept_And_Save_Button);
  visit("Cancel_Button", -1, form.Cancel_Button);
}

template <class Visitor>
void Visit_Controls(Form4State& form, Visitor&& visit) {
  visit("Label1", -1, form.Label1);
  visit("OK_Button", -1, form.OK_Button);
}

template <class Visitor>
void Visit_Controls(Form7State& form, Visitor&& visit) {
  using forms_detail::Visit_Indexed;
  visit("Label1", -1, form.Label1);
  visit("Label2", -1, form.Label2);
  visit("Label3", -1, form.Label3);
  visit("Label4", -1, form.Label4);
  visit("Label5", -1, form.Label5);
  visit("Text1", -1, form.Text1);
  visit("Text2", -1, form.Text2);
  Visit_Indexed("Heading", form.Heading, visit);
  Visit_Indexed("IndexLabel", form.IndexLabel, visit);
  Visit_Indexed("ImageCodeLabel", form.ImageCodeLabel, visit);
  Visit_Indexed("X0Label", form.X0Label, visit);
  Visit_Indexed("X1Label", form.X1Label, visit);
  Visit_Indexed("Y0Label", form.Y0Label, visit);
  Visit_Indexed("Y1Label", form.Y1Label, visit);
  Visit_Indexed("ScaleLabel", form.ScaleLabel, visit);
  Visit_Indexed("DistanceLabel", form.DistanceLabel, visit);
  Visit_Indexed("Text3", form.Text3, visit);
  Visit_Indexed("SunElevationLabel", form.SunElevationLabel, visit);
  Visit_Indexed("SunAzimuthLabel", form.SunAzimuthLabel, visit);
  Visit_Indexed("RayAzimuthLabel", form.RayAzimuthLabel, visit);
  Visit_Indexed("DifferenceLabel", form.DifferenceLabel, visit);
  Visit_Indexed("OffNadirLabel", form.OffNadirLabel, visit);
  visit("Command1", -1, form.Command1);
  visit("Command2", -1, form.Command2);
  visit("Command3", -1, form.Command3);
}

}  // namespace sylvomex
