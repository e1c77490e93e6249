// SPDX-License-Identifier: MIT
#include "workspace/options_window.h"

#include "platform/number_text.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

void Give_Back_Main_Window(Workspace& w) {
  w.Form1.Enabled = true;
  w.Form1.Visible = true;
  Set_Focus(w.Form1, "");
}

// Row by row: when a row is invalid, the rows before it have already changed.
void Take_Options(Workspace& w) {
  const Form2State& form = w.Form2;
  Options& options = w.options;
  options.EpipolarZDepth = Parse_Double(form.Text1.Text);
  options.StepLength = Parse_Double(form.Text2.Text);
  options.RmseBeepOneLevel = Parse_Double(form.Text3.Text);
  options.RmseBeepTwoLevel = Parse_Double(form.Text4.Text);
  options.RmseBeepOneFrequency = Parse_Int32(form.Text5.Text);
  options.RmseBeepTwoFrequency = Parse_Int32(form.Text6.Text);
  options.RmseBeepOneDuration = Parse_Int32(form.Text7.Text);
  options.RmseBeepTwoDuration = Parse_Int32(form.Text8.Text);
  options.IterationStopDX = Parse_Double(form.Text9.Text);
  options.IterationStopDY = Parse_Double(form.Text10.Text);
  options.IterationStopDZ = Parse_Double(form.Text11.Text);
  w.ObservationFileName = form.Text12.Text;
  options.PlotTreesMinHeight = Parse_Double(form.Text13.Text);
  w.PanCenter.X = Parse_Double(form.Text14.Text);
  w.PanCenter.Y = Parse_Double(form.Text15.Text);
  w.PanCenter.Z = Parse_Double(form.Text16.Text);
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
  } catch (const RunTimeError&) {
    w.screen->Message_Box("Cannot convert parameter values into numeric/string values, try again!");
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
