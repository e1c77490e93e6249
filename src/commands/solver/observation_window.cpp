// SPDX-License-Identifier: MIT
#include "commands/solver/observation_window.h"

#include <limits>
#include <string>

#include "commands/overlays/plot_point_set.h"
#include "commands/panes/clearing.h"
#include "platform/characters.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr std::size_t kLongestComment = 30;

// The first count entries of a table, converted to text and joined with commas.
template <class Entries, class ToText>
std::string Joined(const Entries& entries, int count, ToText to_text) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    if (i > 0) text += ",";
    text += to_text(entries(i));
  }
  return text;
}

void Show_Lists(Form3State& form, const ObservationRecord& record) {
  const auto pixel = [](float value) { return Format(value, "00000.00"); };
  form.Label12.Caption =
      Joined(record.ImageIds, record.ImageCount, [](std::int32_t id) { return Plain_Text(id); });
  form.Label13.Caption = Joined(record.Cols, record.ImageCount, pixel);
  form.Label14.Caption = Joined(record.Rows, record.ImageCount, pixel);
}

void Close_Window(Workspace& w) {
  w.Form3.Visible = false;
  w.Form1.Enabled = true;
  Set_Focus(w.Form1, "");
}

// Fields before one that cannot be converted keep their new values.
bool Take_Numbers(Workspace& w) {
  try {
    About(w, "Text1, the measurement number",
          [&] { w.Observation.MeasurementNumber = Parse_Int16(w.Form3.Text1.Text); });
    About(w, "Text2, the species",
          [&] { w.Observation.TreeSpecies = Parse_Byte(w.Form3.Text2.Text); });
    About(w, "Text3, the free integer",
          [&] { w.Observation.FreeInteger = Parse_Int16(w.Form3.Text3.Text); });
    return true;
  } catch (const RunTimeError& error) {
    Show_With_Cause(w, "Cannot convert data in text-boxes into numeric values, check syntax!",
                    error);
    return false;
  }
}

// Every field is followed by a comma, including the last one.
std::string Observation_Line(const ObservationRecord& record) {
  std::string line;
  const auto add = [&line](const std::string& field) { line += field + ","; };
  add(Format(record.MeasurementNumber, "####0"));
  for (const double value : {record.X, record.Y, record.Z}) add(Format(value, "#.00"));
  add(Format(record.DemZ, "#.00"));
  add(Format(record.Rmse, "#.00"));
  add(Format(record.TreeSpecies, "0"));
  add(Format(record.FreeInteger, "####0"));
  add(Format(record.ImageCount, "0"));
  add(record.FreeText.Padded());
  for (int i = 0; i < record.ImageCount; ++i) add(Format(record.ImageIds(i), "#"));
  for (int i = 0; i < record.ImageCount; ++i) add(Format(record.Cols(i), "#.000"));
  for (int i = 0; i < record.ImageCount; ++i) add(Format(record.Rows(i), "#.000"));
  return line + "\n";
}

bool Write_Record(Workspace& w) {
  try {
    Append_To_File(w.Drives.Locate(w.ObservationFileName), Observation_Line(w.Observation));
    return true;
  } catch (const RunTimeError& error) {
    Show_With_Cause(
        w, "An error occurred in writing the data (record) into file " + w.ObservationFileName,
        error);
    return false;
  }
}

bool Last_Number_Used(const Workspace& w) {
  return w.Observation.MeasurementNumber == std::numeric_limits<std::int16_t>::max();
}

// The highest 16-bit number stays the next one.
void Advance_Number(Workspace& w) {
  w.NextMeasurementNumber = w.Observation.MeasurementNumber;
  if (!Last_Number_Used(w)) ++w.NextMeasurementNumber;
  w.Form1.Label2.Caption = "Measurement number: " + Plain_Text(w.NextMeasurementNumber);
}

}  // namespace

void Save_measured_point(Workspace& w) {
  w.Form3.Visible = true;
  Form3_Activate(w);
  Set_Focus(w.Form3, "Text2");
}

void Form3_Activate(Workspace& w) {
  Form3State& form = w.Form3;
  const ObservationRecord& record = w.Observation;
  form.Text1.Text = Plain_Text(w.NextMeasurementNumber);
  form.Label6.Caption = Format(record.DemZ, "#.00 m DTM Z");
  form.Label7.Caption = Format(record.X, "#.00 m");
  form.Label8.Caption = Format(record.Y, "#.00 m");
  form.Label9.Caption = Format(record.Z, "#.00 m");
  form.Label10.Caption = Format(record.Rmse, "#.00 um RMSE");
  form.Label11.Caption = Format(record.ImageCount, "# images");
  form.Text2.Text = Plain_Text(record.TreeSpecies);
  form.Text3.Text = Plain_Text(record.FreeInteger);
  form.Text4.Text = record.FreeText.Trimmed();
  Show_Lists(form, record);
  form.Text5.Text = w.ObservationFileName;
}

void Form3_Accept_And_Save(Workspace& w) {
  if (!Take_Numbers(w)) return;
  if (Character_Count(w.Form3.Text4.Text) > kLongestComment) {
    Show_With_Cause(
        w, "You have entered a comment longer than 30 characters!, shorten it.",
        "Text4 has " + std::to_string(Character_Count(w.Form3.Text4.Text)) + " characters");
    return;
  }
  w.Observation.FreeText = w.Form3.Text4.Text;
  w.ObservationFileName = w.Form3.Text5.Text;
  if (!Write_Record(w)) {
    Close_Window(w);
    return;
  }
  const bool last_number = Last_Number_Used(w);
  Advance_Number(w);
  Close_Window(w);
  Clear_all(w);
  if (w.options.PlotAllAfterSave) {
    Clear_ima(w);
    Plot_Point_Set(w);
  }
  if (last_number) {
    throw RunTimeError(Failure::Overflow,
                       "measurement 32767 is saved, but no number follows it; type a free one "
                       "for the next measurement");
  }
}

void Form3_Cancel(Workspace& w) { Close_Window(w); }

}  // namespace sylvomex
