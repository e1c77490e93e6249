// SPDX-License-Identifier: MIT
// The options, observation, about and distance windows at design time.
#include "state/form_designs.h"
#include "state/forms.h"

namespace sylvomex {

using design::Place;

void Set_Focus(Form& form, const std::string& control) {
  form.ActiveControl = control;
  ++form.focus_version;
}

namespace {

struct OptionRow {
  Label* label;
  TextBox* box;
  const char* caption;
};

}  // namespace

Form2State::Form2State() {
  Title = "Options Window";
  ClientWidth = 640;
  ClientHeight = 540;
  const OptionRow rows[] = {
      {&Label1, &Text1, "Z-depth of epipolar line , m"},
      {&Label2, &Text2, "Length of (N,S,E,W,U,D) -step in meters"},
      {&Label3, &Text3, "RMSE Beep One Level [um]"},
      {&Label4, &Text4, "RMSE Beep Two Level [um]"},
      {&Label5, &Text5, "RMSE Beep One Frequency, Hz"},
      {&Label6, &Text6, "RMSE Beep Two Frequency, Hz"},
      {&Label7, &Text7, "RMSE Beep One Duration [ms]"},
      {&Label8, &Text8, "RMSE Beep Two Duration [ms]"},
      {&Label9, &Text9, "dX below which iteration stops, in meters"},
      {&Label10, &Text10, "dY below which iteration stops, in meters"},
      {&Label11, &Text11, "dZ below which iteration stops, in meters"},
      {&Label12, &Text12, "OutPut Filename for PointData"},
      {&Label16, &Text13, "Plot Trees with Height >"},
      {&Label13, &Text14, "Pan Center, X"},
      {&Label14, &Text15, "Pan Center, Y"},
      {&Label15, &Text16, "Pan Center, Z"},
  };
  double top = 12;
  for (const OptionRow& row : rows) {
    Place(*row.label, row.caption, 12, top + 2, 290, 18);
    Place(*row.box, 310, top, row.box == &Text12 ? 318 : 140, 22);
    top += 26;
  }
  Place(Check1, "Include Tree Numbers in Overlay Plots", 12, top + 6, 420, 20);
  Place(Check2, "After saving a measurement plot all measured points", 12, top + 30, 420, 20);
  Place(Check3, "Draw epipolar line automatically after pointing a target", 12, top + 54, 420, 20);
  Place(Apply_Options_Changes, "Apply changes", 470, top + 48, 158, 28);
}

Form3State::Form3State() {
  Title = "Point Data structure to be saved as an observation";
  ClientWidth = 660;
  ClientHeight = 404;
  const OptionRow rows[] = {
      {&Label1, &Text1, "Observation number"}, {&Label2, &Text2, "TreeSpecies (0-255)"},
      {&Label3, &Text3, "Free Integer Field"}, {&Label4, &Text4, "Free text field (30 characters)"},
      {&Label5, &Text5, "Output File"},
  };
  double top = 12;
  for (const OptionRow& row : rows) {
    Place(*row.label, row.caption, 12, top + 2, 200, 18);
    Place(*row.box, 220, top, row.box == &Text4 ? 260 : row.box == &Text5 ? 428 : 100, 22);
    top += 28;
  }
  struct Shown {
    Label* label;
    const char* caption;
  };
  const Shown solution[] = {
      {&Label7, "East, X"}, {&Label8, "North, Y"}, {&Label9, "Elevation, Z (H)"}};
  top = 160;
  for (int i = 0; i < 3; ++i) {
    Place(Caption(i), solution[i].caption, 12, top, 130, 18);
    Place(*solution[i].label, "", 150, top, 160, 18);
    top += 22;
  }
  Place(Label6, "", 330, 160, 200, 18);
  Place(Label10, "", 330, 182, 200, 18);
  Place(Label11, "", 330, 204, 200, 18);
  const Shown lists[] = {{&Label12, "Image ids"}, {&Label13, "Columns"}, {&Label14, "Rows"}};
  top = 236;
  for (int i = 0; i < 3; ++i) {
    Place(Caption(3 + i), lists[i].caption, 12, top - 3, 80, 18);
    Place(*lists[i].label, "", 96, top, 556, 34);
    top += 38;
  }
  Place(Accept_And_Save_Button, "Accept and Save", 220, 360, 150, 30);
  Place(Cancel_Button, "Cancel", 384, 360, 110, 30);
}

Form4State::Form4State() {
  Title = "About window";
  ClientWidth = 460;
  ClientHeight = 200;
  Place(Label1, "", 20, 20, 420, 110);
  Place(OK_Button, "OK", 175, 150, 110, 30);
}

namespace {

struct DistanceColumn {
  const char* caption;
  double width;
};

constexpr DistanceColumn kDistanceColumns[] = {
    {"Index", 38},
    {"ImageCode", 72},
    {"x (0)", 112},
    {"x (1)", 112},
    {"y (0)", 112},
    {"y (1)", 112},
    {"Scale at Z", 58},
    {"OBSERVED DIST.", 78},
    {"OBS Coding", 130},
    {"Sun Elevation", 66},
    {"Sun Azimuth", 66},
    {"Obj-Cam Ray Azimuth", 80},
    {"Azimuth difference", 72},
    {"Off-Nadir Angle", 70},
};

}  // namespace

Form7State::Form7State() {
  Title = "XY-distances, Record to be saved";
  ClientWidth = 1252;
  ClientHeight = 400;
  Place(Label1, "Id (Tree No)", 12, 14, 120, 18);
  Place(Text1, 140, 12, 90, 22);
  Place(Label2, "Free Integer Field", 12, 42, 120, 18);
  Place(Text2, 140, 40, 90, 22);
  Place(Label3, "", 260, 14, 140, 18);
  Place(Label4, "", 410, 14, 140, 18);
  Place(Label5, "", 560, 14, 140, 18);
  Table<Label, 0, 8>* const columns[] = {
      &IndexLabel,      &ImageCodeLabel,  &X0Label,         &X1Label,      &Y0Label,
      &Y1Label,         &ScaleLabel,      &DistanceLabel,   nullptr,       &SunElevationLabel,
      &SunAzimuthLabel, &RayAzimuthLabel, &DifferenceLabel, &OffNadirLabel};
  double left = 10;
  for (int c = 0; c < 14; ++c) {
    const DistanceColumn& column = kDistanceColumns[c];
    Place(Heading(c), column.caption, left, 74, column.width, 32);
    for (int row = 0; row < 9; ++row) {
      const double top = 110 + 26.0 * row;
      if (columns[c] == nullptr) {
        Place(Text3(row), left, top, column.width, 22);
      } else {
        Place((*columns[c])(row), "", left, top + 2, column.width, 18);
      }
    }
    left += column.width + 5;
  }
  Place(Command1, "Save, Close and Reset (Ctrl-S)", 12, 356, 220, 30);
  Place(Command2, "Reset All and Close (Ctrl-A)", 246, 356, 220, 30);
  Place(Command3, "Return to Main Win (Ctrl-Z)", 480, 356, 220, 30);
}

}  // namespace sylvomex
