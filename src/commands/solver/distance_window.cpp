// SPDX-License-Identifier: MIT
#include "commands/solver/distance_window.h"

#include <string>

#include "commands/panes/clearing.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kDistanceFile = "e:\\MA2_2002_Widths.txt";

void Close_Window(Workspace& w) {
  w.Form7.Visible = false;
  Set_Focus(w.Form1, "");
}

// The coordinates are in metres, although the window labels them with another unit.
void Show_Entry(Form7State& form, int item, const XYDistanceEntry& entry) {
  constexpr const char* kCoordinate = "0.000000 um";
  constexpr const char* kAngle = "#.0 deg";
  form.IndexLabel(item).Caption = Plain_Text(entry.Index);
  form.ImageCodeLabel(item).Caption = Plain_Text(entry.ImageCode);
  form.X0Label(item).Caption = Format(entry.X0Obj, kCoordinate);
  form.X1Label(item).Caption = Format(entry.X1Obj, kCoordinate);
  form.Y0Label(item).Caption = Format(entry.Y0Obj, kCoordinate);
  form.Y1Label(item).Caption = Format(entry.Y1Obj, kCoordinate);
  form.ScaleLabel(item).Caption = Format(entry.ScaleAtZ, "#.0 ");
  form.DistanceLabel(item).Caption = Format(entry.ObservedDistance, "#.00 m ");
  form.Text3(item).Text = entry.ObsCoding.Trimmed();
  form.SunElevationLabel(item).Caption = Format(entry.SunElevation, kAngle);
  form.SunAzimuthLabel(item).Caption = Format(entry.SunAzimuth, kAngle);
  form.RayAzimuthLabel(item).Caption = Format(entry.ObjCamRayAzimuth, kAngle);
  form.DifferenceLabel(item).Caption = Format(entry.AzimuthDifference, kAngle);
  form.OffNadirLabel(item).Caption = Format(entry.OffNadirAngle, kAngle);
}

void Add_Image_Group(std::string& line, const XYDistanceEntry& entry) {
  line += "," + Plain_Text(entry.Index) + "," + Plain_Text(entry.ImageCode);
  for (const double end : {entry.X0Obj, entry.X1Obj, entry.Y0Obj, entry.Y1Obj}) {
    line += "," + Format(end, "0.000000");
  }
  line += "," + Format(entry.ScaleAtZ, "#.0");
  line += "," + Format(entry.ObservedDistance, "#.00");
  for (const double angle : {entry.SunElevation, entry.SunAzimuth, entry.ObjCamRayAzimuth,
                             entry.AzimuthDifference, entry.OffNadirAngle}) {
    line += "," + Format(angle, "#.00");
  }
  line += "," + entry.ObsCoding.Padded();
}

std::string Distance_Line(const Workspace& w) {
  const XYDistanceEntry& head = w.XYDistanceEntries(0);
  std::string line = Plain_Text(head.TreeNumber) + "," + Plain_Text(head.FreeInteger);
  for (const double value : {head.X, head.Y, head.Z}) line += "," + Format(value, "#.00");
  for (int k = 0; k < w.ImageCount; ++k) Add_Image_Group(line, w.XYDistanceEntries(k));
  return line + "\n";
}

// Resets the measurement; the point and the two header values of an entry stay.
void Reset_Entry(XYDistanceEntry& entry) {
  XYDistanceEntry fresh;
  fresh.X = entry.X;
  fresh.Y = entry.Y;
  fresh.Z = entry.Z;
  fresh.TreeNumber = entry.TreeNumber;
  fresh.FreeInteger = entry.FreeInteger;
  entry = fresh;
}

void Reset_Record(Workspace& w) {
  for (XYDistanceEntry& entry : w.XYDistanceEntries) Reset_Entry(entry);
}

// Reads a box that should hold a 16-bit integer; any other text empties the box.
bool Take_Integer(Workspace& w, const char* name, TextBox& box, std::int16_t& field) {
  try {
    field = Parse_Int16(box.Text);
    return true;
  } catch (const RunTimeError& error) {
    Show_With_Cause(w, "Cannot convert input into integer-value", error.At(name));
    box.Text.clear();
    return false;
  }
}

}  // namespace

void Save_XY_Distances(Workspace& w) {
  w.Form7.Visible = true;
  Form7_Activate(w);
  Set_Focus(w.Form7, "Text1");
}

void Form7_Activate(Workspace& w) {
  const XYDistanceEntry& head = w.XYDistanceEntries(0);
  w.Form7.Label3.Caption = Format(head.X, "#.00 m ");
  w.Form7.Label4.Caption = Format(head.Y, "#.00 m ");
  w.Form7.Label5.Caption = Format(head.Z, "#.00 m ");
  w.Form7.Text1.Text = Plain_Text(head.TreeNumber);
  w.Form7.Text2.Text = Plain_Text(head.FreeInteger);
  for (int item = 0; item <= 8; ++item) Show_Entry(w.Form7, item, w.XYDistanceEntries(item));
}

void Form7_Save_Close_And_Reset(Workspace& w) {
  const FilePath file = w.Drives.Locate(kDistanceFile);
  Append_To_File(file, "");  // reports a file that cannot be opened before asking
  if (w.XYDistanceEntries(0).TreeNumber == 0 &&
      w.screen->Message_Box("Your saving the record for tree number zero, ok?", Buttons::YesNo) !=
          Answer::Yes) {
    return;
  }
  Append_To_File(file, Distance_Line(w));
  Reset_Record(w);
  Clear_ima(w);
  Close_Window(w);
}

void Form7_Reset_And_Close(Workspace& w) {
  Reset_Record(w);
  Close_Window(w);
}

void Form7_Return_To_Main(Workspace& w) { Close_Window(w); }

void Form7_Text1_Enter(Workspace& w) {
  if (Take_Integer(w, "Text1", w.Form7.Text1, w.XYDistanceEntries(0).TreeNumber)) {
    Set_Focus(w.Form7, "Text2");
  }
}

void Form7_Text2_Enter(Workspace& w) {
  if (Take_Integer(w, "Text2", w.Form7.Text2, w.XYDistanceEntries(0).FreeInteger)) {
    Set_Focus(w.Form7, "Text3(0)");
  }
}

void Form7_Text2_First_Key(Workspace& w) {
  if (w.Form7.Text2.Text.empty()) w.Form7.Text2.Text = "0";
}

void Form7_Text3_Enter(Workspace& w, int item) {
  w.XYDistanceEntries(item).ObsCoding = w.Form7.Text3(item).Text;
}

}  // namespace sylvomex
