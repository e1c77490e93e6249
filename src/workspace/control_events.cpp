// SPDX-License-Identifier: MIT
#include "workspace/control_events.h"

namespace sylvomex {
namespace {

constexpr int kEnterKey = 13;

[[noreturn]] void Refuse(const WindowRow& window, const ControlName& control, const char* why) {
  throw UnknownName(window.name + ("." + Control_Name_Text(control.name, control.index)) + " " +
                    why);
}

void Note_Focus(Workspace& w, const WindowRow& window, const ControlName& control) {
  window.record(w).ActiveControl = Control_Name_Text(control.name, control.index);
}

ControlEvent Event_Of(const ControlName& control) {
  ControlEvent event;
  event.index = control.index;
  return event;
}

EventOutcome Set_Check_Box(Workspace& w, const WindowRow& window, const ControlName& control,
                           CheckBox& box, const std::string& text) {
  if (text != "0" && text != "1") Refuse(window, control, "is a check box, which takes 0 or 1");
  const int value = text == "1" ? 1 : 0;
  if (box.Value == value) return EventOutcome::Done;
  box.Value = value;
  return Tell_Control(w, window, control.name, Happening::Click, Event_Of(control));
}

EventOutcome Choose_Option(Workspace& w, const WindowRow& window, const ControlName& control,
                           OptionButton& chosen, const std::string& text) {
  if (text != "1") Refuse(window, control, "is an option button, which takes 1");
  if (chosen.Value == 1) return EventOutcome::Done;
  Visit_Controls(window.record(w), window.design->controls,
                 [](const ControlRow&, int, AnyControl other) {
                   if (OptionButton** option = std::get_if<OptionButton*>(&other)) {
                     (*option)->Value = 0;
                   }
                 });
  chosen.Value = 1;
  return Tell_Control(w, window, control.name, Happening::Click, Event_Of(control));
}

EventOutcome Press_Enter(Workspace& w, const WindowRow& window, const ControlName& box) {
  Note_Focus(w, window, box);
  ControlEvent event = Event_Of(box);
  event.key_code = kEnterKey;
  const EventOutcome outcome = Tell_Control(w, window, box.name, Happening::KeyDown, event);
  if (outcome != EventOutcome::Done) return outcome;
  return Tell_Control(w, window, box.name, Happening::KeyPress, event);
}

bool Takes_Enter(const AnyControl& control) {
  return std::holds_alternative<TextBox*>(control) || std::holds_alternative<Button*>(control);
}

}  // namespace

EventOutcome Tell_Control(Workspace& w, const WindowRow& window, const std::string& control,
                          Happening happening, const ControlEvent& event) {
  const HandlerRow* handler = Find_Handler(window, control, happening);
  if (handler == nullptr) return EventOutcome::Done;
  return Run_Handler(w, Handler_Name(*handler), [&] { handler->run(w, event); });
}

AnyControl Control_Of(Workspace& w, const WindowRow& window, const ControlName& control) {
  return Find_Control(window.record(w), *window.design, control.name, control.index);
}

EventOutcome Set_Control(Workspace& w, const WindowRow& window, const ControlName& control,
                         const std::string& text) {
  const AnyControl found = Control_Of(w, window, control);
  if (TextBox* const* box = std::get_if<TextBox*>(&found)) {
    (*box)->Text = text;
    Note_Focus(w, window, control);
    return EventOutcome::Done;
  }
  if (CheckBox* const* box = std::get_if<CheckBox*>(&found)) {
    return Set_Check_Box(w, window, control, **box, text);
  }
  if (OptionButton* const* option = std::get_if<OptionButton*>(&found)) {
    return Choose_Option(w, window, control, **option, text);
  }
  Refuse(window, control, "is no text box and no check box");
}

EventOutcome Press_Control(Workspace& w, const WindowRow& window, const ControlName& control) {
  const AnyControl found = Control_Of(w, window, control);
  if (!Takes_Enter(found)) Refuse(window, control, "is no button and no text box");
  if (std::holds_alternative<TextBox*>(found)) return Press_Enter(w, window, control);
  return Tell_Control(w, window, control.name, Happening::Click, Event_Of(control));
}

EventOutcome Key_In_Control(Workspace& w, const WindowRow& window, const std::string& focus,
                            const ControlEvent& key) {
  const auto control = Parse_Control_Name(focus);
  if (focus.empty() || !control) return EventOutcome::Done;
  const bool is_pressed = key.key_code == kEnterKey && Takes_Enter(Control_Of(w, window, *control));
  if (is_pressed) return Press_Control(w, window, *control);
  ControlEvent event = key;
  event.index = control->index;
  return Tell_Control(w, window, control->name, Happening::KeyDown, event);
}

}  // namespace sylvomex
