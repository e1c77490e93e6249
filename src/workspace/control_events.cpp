// SPDX-License-Identifier: MIT
#include "workspace/control_events.h"

#include "commands/solver/distance_window.h"
#include "commands/solver/observation_window.h"
#include "workspace/menu_modes.h"
#include "workspace/menu_table.h"
#include "workspace/options_window.h"

namespace sylvomex {
namespace {

constexpr int kEnterKey = 13;

std::string Full_Name(const std::string& form, const ControlName& control) {
  std::string name = form + "." + control.name;
  if (control.index >= 0) name += "(" + std::to_string(control.index) + ")";
  return name;
}

[[noreturn]] void Refuse(const std::string& form, const ControlName& control, const char* why) {
  throw UnknownName(Full_Name(form, control) + " " + why);
}

void Note_Focus(Workspace& w, const std::string& form, const ControlName& control) {
  std::string name = control.name;
  if (control.index >= 0) name += "(" + std::to_string(control.index) + ")";
  Find_Form(w, form)->ActiveControl = name;
}

// The click event of a check box of the main window.
void Check_Box_Clicked(Workspace& w, const ControlName& control) {
  if (control.name == "Check2") Check2_Click(w, control.index);
  if (control.name == "Check5") Check5_Click(w);
  if (control.name == "MeasureDistancesCheckBox") MeasureDistancesCheckBox_Click(w);
}

EventOutcome Set_Check_Box(Workspace& w, const std::string& form, const ControlName& control,
                           CheckBox& box, const std::string& text) {
  if (text != "0" && text != "1") Refuse(form, control, "is a check box, which takes 0 or 1");
  const int value = text == "1" ? 1 : 0;
  if (box.Value == value) return EventOutcome::Done;
  box.Value = value;
  if (form != "Form1") return EventOutcome::Done;
  return Run_Handler(w, control.name + "_Click", [&] { Check_Box_Clicked(w, control); });
}

using Handler = void (*)(Workspace&);

struct NamedHandler {
  const char* control;  // with its window
  const char* event;    // what a failure is reported under
  Handler handler;
};

constexpr NamedHandler kPresses[] = {
    {"Form2.Apply_Options_Changes", "Apply_Options_Changes_Click", Apply_Options_Changes},
    {"Form3.Accept_And_Save_Button", "Accept_And_Save_Button_Click", Form3_Accept_And_Save},
    {"Form3.Cancel_Button", "Cancel_Button_Click", Form3_Cancel},
    {"Form3.Text2", "Text2_KeyPress", Form3_Accept_And_Save},
    {"Form3.Text3", "Text3_KeyPress", Form3_Accept_And_Save},
    {"Form3.Text4", "Text4_KeyPress", Form3_Accept_And_Save},
    {"Form4.OK_Button", "OK_Button_Click", Form4_OK_Button},
    {"Form7.Command1", "Command1_Click", Form7_Save_Close_And_Reset},
    {"Form7.Command2", "Command2_Click", Form7_Reset_And_Close},
    {"Form7.Command3", "Command3_Click", Form7_Return_To_Main},
    {"Form7.Text1", "Text1_KeyPress", Form7_Text1_Enter},
    {"Form7.Text2", "Text2_KeyPress", Form7_Text2_Enter},
};

void Fill_Empty_Free_Integer(Workspace& w, const std::string& form, const std::string& control) {
  if (form == "Form7" && control == "Text2") Form7_Text2_First_Key(w);
}

}  // namespace

EventOutcome Set_Control(Workspace& w, const std::string& form, const ControlName& control,
                         const std::string& text) {
  const AnyControl found = Find_Control(w, form, control);
  if (TextBox* const* box = std::get_if<TextBox*>(&found)) {
    (*box)->Text = text;
    Note_Focus(w, form, control);
    return EventOutcome::Done;
  }
  if (CheckBox* const* box = std::get_if<CheckBox*>(&found)) {
    return Set_Check_Box(w, form, control, **box, text);
  }
  Refuse(form, control, "is no text box and no check box");
}

EventOutcome Press_Control(Workspace& w, const std::string& form, const ControlName& control) {
  const AnyControl found = Find_Control(w, form, control);
  const bool is_text = std::holds_alternative<TextBox*>(found);
  if (!is_text && !std::holds_alternative<Button*>(found)) {
    Refuse(form, control, "is no button and no text box");
  }
  if (is_text) {
    Note_Focus(w, form, control);
    Fill_Empty_Free_Integer(w, form, control.name);
  }
  if (form == "Form7" && control.name == "Text3") {
    return Run_Handler(w, "Text3_KeyPress", [&] { Form7_Text3_Enter(w, control.index); });
  }
  const std::string name = Full_Name(form, control);
  for (const NamedHandler& press : kPresses) {
    if (name == press.control) return Run_Handler(w, press.event, [&] { press.handler(w); });
  }
  return EventOutcome::Done;
}

EventOutcome Move_Over_Control(Workspace& w, const std::string& form, const ControlName& control) {
  if (form != "Form1" || control.name != "MeasureDistancesCheckBox") return EventOutcome::Done;
  return Run_Handler(w, "MeasureDistancesCheckBox_MouseMove",
                     [&] { MeasureDistancesCheckBox_MouseMove(w); });
}

EventOutcome Secondary_Window_Key(Workspace& w, const OperatorEvent& event) {
  const Form* form = Find_Form(w, event.form);
  if (form == nullptr) throw UnknownName("there is no window " + event.form);
  for (const MenuRow& row : Window_Menu(event.form)) {
    if (row.key_code != 0 && row.key_code == event.key_code && row.key_shift == event.shift) {
      return Run_Handler(w, row.name, [&] { Run_Menu_Row(w, row); });
    }
  }
  const std::string focus = event.control.empty() ? form->ActiveControl : event.control;
  Fill_Empty_Free_Integer(w, event.form, focus);
  const auto control = Parse_Control_Name(focus);
  if (event.key_code != kEnterKey || focus.empty() || !control) return EventOutcome::Done;
  return Press_Control(w, event.form, *control);
}

}  // namespace sylvomex
