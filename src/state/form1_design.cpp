// SPDX-License-Identifier: MIT
// The main window at design time: a strip of three rows above the panes.
#include "state/form_designs.h"
#include "state/forms.h"

namespace sylvomex {

using design::Place;

namespace {

constexpr double kTextWidth = 60;   // the two observation boxes of a pane stand 60 apart
constexpr double kTextHeight = 15;  // and end above the tick box and the read-out
constexpr double kParameterRow = 38;
constexpr double kWidestWindow = 8192;  // the two long dividers end at the window

void Design_Status(Form1State& form) {
  Place(form.ResultsCaption, "Space intersection results:", 4, 2, 240, 16);
  Place(form.Label7(0), "East, X", 4, 19, 50, 16);
  Place(form.Label4(0), "", 56, 19, 84, 16);
  Place(form.Label7(1), "North, Y", 146, 19, 52, 16);
  Place(form.Label4(1), "", 200, 19, 84, 16);
  Place(form.Label7(2), "Elevation, Z (H)", 290, 19, 92, 16);
  Place(form.Label4(2), "", 384, 19, 60, 16);
  Place(form.Label2, "Counter", 452, 2, 180, 16);
  Place(form.Label10, "Program status", 642, 1, 630, 17);
  Place(form.Label3, "", 642, 19, 630, 16);
}

struct Parameter {
  TextBox* box;
  const char* value;
  const char* caption;
  double caption_width;
};

// Returns the left end of what follows the boxes.
double Design_Parameters(Form1State& form, double left) {
  const Parameter parameters[] = {
      {&form.Text4, "23", "r", 12},       {&form.Text5, "1.5", "Tw", 20},
      {&form.Text6, "3", "Zd", 20},       {&form.Text7, "0", "EZA", 28},
      {&form.Text8, "1.15", "fHDOM", 46}, {&form.Text9, "0.6", "Hlow", 32},
      {&form.Text2, "1.5", "XYt", 26},    {&form.Text3, "0.3", "Rl", 16},
      {&form.Text10, "0.5", "Mesh", 36},
  };
  int index = 0;
  for (const Parameter& parameter : parameters) {
    const bool last = parameter.box == &form.Text10;
    Place(*parameter.box, left, kParameterRow - (last ? 1 : 0), 36, kTextHeight + (last ? 2 : 0));
    parameter.box->Text = parameter.value;
    Place(form.ParameterLabel(index++), parameter.caption, left + 39, kParameterRow,
          parameter.caption_width, kTextHeight);
    left += 39 + parameter.caption_width + 6;
  }
  return left;
}

void Design_Parameter_Row(Form1State& form) {
  Place(form.Check4, "Esc", 4, kParameterRow, 46, kTextHeight);
  Place(form.Check3, "Vector", 52, kParameterRow, 60, kTextHeight);
  Place(form.MeasureDistancesCheckBox, "Dcrown", 116, kParameterRow, 66, kTextHeight);
  double left = Design_Parameters(form, 194);
  left += 6;
  Place(form.SpeciesLabel, "Species", left, kParameterRow, 48, kTextHeight);
  left += 52;
  const char* const species[] = {"1", "2", "3", "20"};
  for (int i = 0; i < 4; ++i) {
    Place(form.Check2(i), species[i], left, kParameterRow, i == 3 ? 38 : 32, kTextHeight);
    left += i == 3 ? 42 : 34;
  }
  left += 8;
  Place(form.Check5, "Multi-Size TM", left, kParameterRow, 106, kTextHeight);
}

void Design_Dividers(Form1State& form) {
  Place(form.Line(0), 0, 36, kWidestWindow, 1);
  Place(form.Line(1), 0, 54, kWidestWindow, 1);
  Place(form.Line(2), 447, 2, 1, 33);
  Place(form.Line(3), 636, 2, 1, 33);
  const TextBox* const groups[] = {&form.Text4, &form.Text5, &form.Text8, &form.Text2};
  for (int i = 0; i < 4; ++i) Place(form.Line(4 + i), groups[i]->Left - 5, 38, 1, 15);
  Place(form.Line(8), form.SpeciesLabel.Left - 7, 38, 1, 15);
  Place(form.Line(9), form.Check5.Left - 7, 38, 1, 15);
}

void Hide(Control& control) {
  control.Visible = false;
  control.Enabled = false;
}

void Design_Panes(Form1State& form) {
  for (TextBox& box : form.Text1) {
    Place(box, 0, 0, kTextWidth, kTextHeight);
    Hide(box);
  }
  for (TextBox& box : form.Text12) {
    Place(box, 0, 0, kTextWidth, kTextHeight);
    Hide(box);
  }
  for (Label& label : form.Label1) {
    Place(label, "", 0, 0, 3 * kTextWidth, 16);
    Hide(label);
  }
  for (CheckBox& box : form.Check1) {
    Place(box, "", 0, 0, 200, kTextHeight);
    Hide(box);
  }
  for (Picture& picture : form.Picture1) Hide(picture);
}

}  // namespace

Form1State::Form1State() {
  Title = "SYLVOMEX. 3D measurements with aerial photographs and lidar data.";
  ClientWidth = 1280;
  ClientHeight = 1024;
  Design_Status(*this);
  Design_Parameter_Row(*this);
  Design_Dividers(*this);
  Design_Panes(*this);
}

}  // namespace sylvomex
