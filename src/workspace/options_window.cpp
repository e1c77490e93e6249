// SPDX-License-Identifier: MIT
#include "workspace/options_window.h"

#include "platform/number_text.h"
#include "state/box_numbers.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

void Give_Back_Main_Window(Workspace& w) {
  w.Form1.Enabled = true;
  w.Form1.Visible = true;
  Set_Focus(w.Form1, "");
}

std::int32_t Integer_In(const TextBox& box, const char* name) {
  try {
    return Parse_Int32(box.Text);
  } catch (const RunTimeError& error) {
    throw error.At(name);
  }
}

// Row by row: when a row is invalid, the rows before it have already changed.
void Take_Options(Workspace& w) {
  const Form2State& form = w.Form2;
  Options& options = w.options;
  options.EpipolarZDepth = Number_In(form.Text1, "Text1");
  options.StepLength = Number_In(form.Text2, "Text2");
  options.RmseBeepOneLevel = Number_In(form.Text3, "Text3");
  options.RmseBeepTwoLevel = Number_In(form.Text4, "Text4");
  options.RmseBeepOneFrequency = Integer_In(form.Text5, "Text5");
  options.RmseBeepTwoFrequency = Integer_In(form.Text6, "Text6");
  options.RmseBeepOneDuration = Integer_In(form.Text7, "Text7");
  options.RmseBeepTwoDuration = Integer_In(form.Text8, "Text8");
  options.IterationStopDX = Number_In(form.Text9, "Text9");
  options.IterationStopDY = Number_In(form.Text10, "Text10");
  options.IterationStopDZ = Number_In(form.Text11, "Text11");
  w.ObservationFileName = form.Text12.Text;
  options.PlotTreesMinHeight = Number_In(form.Text13, "Text13");
  w.PanCenter.X = Number_In(form.Text14, "Text14");
  w.PanCenter.Y = Number_In(form.Text15, "Text15");
  w.PanCenter.Z = Number_In(form.Text16, "Text16");
  options.IncludeTreeNumbers = form.Check1.Value != 0;
  options.PlotAllAfterSave = form.Check2.Value != 0;
  options.AutoEpipolar = form.Check3.Value != 0;
}

}  // namespace

void Open_Options_Window(Workspace& w) {
  w.Form2.Visible = true;
  Set_Focus(w.Form2, "");
  Form2_Activate(w);
}

void Form2_Activate(Workspace& w) {
  Form2State& form = w.Form2;
  const Options& options = w.options;
  form.Text1.Text = Plain_Text(options.EpipolarZDepth);
  form.Text2.Text = Plain_Text(options.StepLength);
  form.Text3.Text = Plain_Text(options.RmseBeepOneLevel);
  form.Text4.Text = Plain_Text(options.RmseBeepTwoLevel);
  form.Text5.Text = Plain_Text(options.RmseBeepOneFrequency);
  form.Text6.Text = Plain_Text(options.RmseBeepTwoFrequency);
  form.Text7.Text = Plain_Text(options.RmseBeepOneDuration);
  form.Text8.Text = Plain_Text(options.RmseBeepTwoDuration);
  form.Text9.Text = Plain_Text(options.IterationStopDX);
  form.Text10.Text = Plain_Text(options.IterationStopDY);
  form.Text11.Text = Plain_Text(options.IterationStopDZ);
  form.Text12.Text = w.ObservationFileName;
  form.Text13.Text = Plain_Text(options.PlotTreesMinHeight);
  form.Text14.Text = Plain_Text(w.PanCenter.X);
  form.Text15.Text = Plain_Text(w.PanCenter.Y);
  form.Text16.Text = Plain_Text(w.PanCenter.Z);
  form.Check1.Value = options.IncludeTreeNumbers ? 1 : 0;
  form.Check2.Value = options.PlotAllAfterSave ? 1 : 0;
  form.Check3.Value = options.AutoEpipolar ? 1 : 0;
}

void Apply_Options_Changes(Workspace& w) {
  try {
    Take_Options(w);
  } catch (const RunTimeError& error) {
    Show_With_Cause(w, "Cannot convert parameter values into numeric/string values, try again!",
                    error);
  }
}

void Form2_Apply(Workspace& w) {
  Apply_Options_Changes(w);
  Form2_Close_Window(w);
}

void Form2_Close_Window(Workspace& w) {
  w.Form2 = Form2State();
  Give_Back_Main_Window(w);
}

void Open_About_Window(Workspace& w) {
  w.Form4.Label1.Caption =
      "SYLVOMEX is an experimental photogrammetric program."
      " It can be used for 3D measurements with stereoscopic or monoscopic,"
      " multiple image-matching. Lidar data and other vector data can be "
      " oevrlayed and analysed in combination with the imagery.";
  w.Form4.Visible = true;
  Set_Focus(w.Form4, "OK_Button");
}

void Form4_OK_Button(Workspace& w) {
  w.Form4 = Form4State();
  Give_Back_Main_Window(w);
}

}  // namespace sylvomex
