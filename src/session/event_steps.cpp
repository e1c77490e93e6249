// SPDX-License-Identifier: MIT
#include "session/event_steps.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

#include "session/key_names.h"
#include "session/step_arguments.h"
#include "session/step_end.h"
#include "session/transcript_text.h"
#include "session/value_name.h"
#include "state/window_limits.h"

namespace sylvomex {

namespace {

using Kind = OperatorEvent::Kind;
using Words = std::span<const ScriptWord>;

OperatorEvent Event_On(Kind kind, const std::string& target) {
  const WindowName place = Split_Window(target);
  OperatorEvent event;
  event.kind = kind;
  event.form = place.form;
  event.control = place.control;
  return event;
}

/// One of the words left, right, middle, shift, ctrl, alt.
void Add_Pointer_Word(OperatorEvent& event, const std::string& word) {
  if (word == "left") {
    event.button = kLeftButton;
  } else if (word == "right") {
    event.button = kRightButton;
  } else if (word == "middle") {
    event.button = kMiddleButton;
  } else if (word == "shift") {
    event.shift |= kShift;
  } else if (word == "ctrl") {
    event.shift |= kCtrl;
  } else if (word == "alt") {
    event.shift |= kAlt;
  } else {
    throw StepEnd{kStepFailed, Quoted(word) + " is none of left, right, middle, shift, ctrl, alt"};
  }
}

void Set_Position(OperatorEvent& event, Words words) {
  event.x = Real_Argument(words[2].text);
  event.y = Real_Argument(words[3].text);
}

OperatorEvent Named_Event(Kind kind, Words words) { return Event_On(kind, words[1].text); }

OperatorEvent Set_Event(Kind kind, Words words) {
  OperatorEvent event = Event_On(kind, words[1].text);
  event.text = words[2].text;
  return event;
}

OperatorEvent Window_Event(Kind kind, Words words) {
  OperatorEvent event;
  event.kind = kind;
  event.form = words[1].text;
  return event;
}

OperatorEvent Bare_Event(Kind kind, Words) {
  OperatorEvent event;
  event.kind = kind;
  return event;
}

/// The target is a control or the window itself.
OperatorEvent Pointer_Event(Kind kind, Words words) {
  const std::string& target = words[1].text;
  OperatorEvent event = Is_Form_Name(target) ? Window_Event(kind, words) : Event_On(kind, target);
  Set_Position(event, words);
  return event;
}

OperatorEvent Click_Event(Kind kind, Words words) {
  OperatorEvent event = Pointer_Event(kind, words);
  for (const ScriptWord& word : words.subspan(4)) Add_Pointer_Word(event, word.text);
  return event;
}

/// Of the named modifiers only.
void Add_Modifiers(OperatorEvent& event, Words words, std::string_view allowed) {
  for (const ScriptWord& word : words) {
    if (word.text != allowed) {
      throw StepEnd{kStepFailed, Quoted(word.text) + " is not " + std::string(allowed)};
    }
    Add_Pointer_Word(event, word.text);
  }
}

constexpr long kMostNotches = 100;

OperatorEvent Wheel_Event(Kind kind, Words words) {
  OperatorEvent event = Event_On(kind, words[1].text);
  Set_Position(event, words);
  const long notches = Whole_Argument(words[4].text);
  if (std::abs(notches) > kMostNotches) {
    throw StepEnd{kStepFailed, "a wheel turns by at most " + std::to_string(kMostNotches)};
  }
  event.notches = static_cast<int>(notches);
  Add_Modifiers(event, words.subspan(5), "ctrl");
  return event;
}

OperatorEvent Pan_Event(Kind kind, Words words) {
  OperatorEvent event = Event_On(kind, words[1].text);
  Set_Position(event, words);
  Add_Modifiers(event, words.subspan(4), "shift");
  return event;
}

OperatorEvent Resize_Event(Kind kind, Words words) {
  OperatorEvent event = Window_Event(kind, words);
  Set_Position(event, words);
  if (!Is_Window_Size(event.x, event.y)) {
    throw StepEnd{kStepFailed, Window_Size_Refusal(event.x, event.y)};
  }
  return event;
}

OperatorEvent Key_Event(Kind kind, Words words) {
  OperatorEvent event;
  event.kind = kind;
  Words rest = words.subspan(1);
  if (rest.size() > 1 && Is_Form_Name(rest.front().text)) {
    event.form = rest.front().text;
    rest = rest.subspan(1);
  }
  const std::optional<int> code = Key_Code(rest.front().text);
  if (!code) throw StepEnd{kStepFailed, Quoted(rest.front().text) + " is no key"};
  event.key_code = *code;
  for (const ScriptWord& word : rest.subspan(1)) {
    if (word.text == "left" || word.text == "right" || word.text == "middle") {
      throw StepEnd{kStepFailed, Quoted(word.text) + " is none of shift, ctrl, alt"};
    }
    Add_Pointer_Word(event, word.text);
  }
  return event;
}

struct EventStep {
  const char* name;
  Kind kind;
  OperatorEvent (*make)(Kind kind, Words words);
};

constexpr std::array kEventSteps{
    EventStep{"menu", Kind::Menu, Named_Event},
    EventStep{"command", Kind::Command, Named_Event},
    EventStep{"set", Kind::Set, Set_Event},
    EventStep{"press", Kind::Press, Named_Event},
    EventStep{"click", Kind::Click, Click_Event},
    EventStep{"doubleclick", Kind::DoubleClick, Click_Event},
    EventStep{"move", Kind::Move, Pointer_Event},
    EventStep{"wheel", Kind::Wheel, Wheel_Event},
    EventStep{"pan", Kind::Pan, Pan_Event},
    EventStep{"key", Kind::Key, Key_Event},
    EventStep{"resize", Kind::Resize, Resize_Event},
    EventStep{"close", Kind::Close, Window_Event},
    EventStep{"undo", Kind::Undo, Bare_Event},
    EventStep{"redo", Kind::Redo, Bare_Event},
    EventStep{"takeback", Kind::TakeBackLine, Bare_Event},
};

std::string Plain_Real(double value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return {digits.data(), end.ptr};
}

std::string Target_Text(const OperatorEvent& event) {
  if (event.control.empty()) return Script_Word(event.form);
  // The main window's name is left out, unless the control's own name begins like one of a window.
  const bool plain = event.form == "Form1" && Split_Window(event.control).control == event.control;
  return Script_Word((plain ? "" : event.form + ".") + event.control);
}

std::string Modifiers_Text(int shift) {
  std::string text;
  if ((shift & kShift) != 0) text += " shift";
  if ((shift & kCtrl) != 0) text += " ctrl";
  if ((shift & kAlt) != 0) text += " alt";
  return text;
}

std::string Button_Text(int button) {
  if (button == kRightButton) return " right";
  return button == kMiddleButton ? " middle" : "";
}

std::string Position_Text(const OperatorEvent& event) {
  return " " + Plain_Real(event.x) + " " + Plain_Real(event.y);
}

/// In a secondary window, Enter in a box does what `press` does, wherever the focus is.
bool Presses_Control(const OperatorEvent& event) {
  return event.kind == Kind::Key && event.form != "Form1" && !event.control.empty() &&
         event.key_code == Key_Code("Enter") && event.shift == 0;
}

std::string Key_Step_Arguments(const OperatorEvent& event) {
  const std::string window = event.form == "Form1" ? "" : event.form + " ";
  return window + Key_Name(event.key_code) + Modifiers_Text(event.shift);
}

}  // namespace

bool Is_Event_Step(std::string_view name) {
  return std::ranges::any_of(kEventSteps, [&](const EventStep& step) { return name == step.name; });
}

OperatorEvent Event_Of_Step(Words words) {
  const auto row = std::ranges::find_if(
      kEventSteps, [&](const EventStep& step) { return words.front().text == step.name; });
  return row->make(row->kind, words);
}

std::string Step_Text(const OperatorEvent& event) {
  if (Presses_Control(event)) return "press " + Target_Text(event);
  const auto row = std::ranges::find(kEventSteps, event.kind, &EventStep::kind);
  const std::string step = std::string(row->name) + " ";
  switch (event.kind) {
    case Kind::Set:
      return step + Target_Text(event) + " " + Script_Word(event.text);
    case Kind::Click:
    case Kind::DoubleClick:
      return step + Target_Text(event) + Position_Text(event) + Button_Text(event.button) +
             Modifiers_Text(event.shift);
    case Kind::Wheel:
      return step + Target_Text(event) + Position_Text(event) + " " +
             std::to_string(event.notches) + Modifiers_Text(event.shift);
    case Kind::Pan:
      return step + Target_Text(event) + Position_Text(event) + Modifiers_Text(event.shift);
    case Kind::Move:
    case Kind::Resize:
      return step + Target_Text(event) + Position_Text(event);
    case Kind::Key:
      return step + Key_Step_Arguments(event);
    case Kind::Menu:
    case Kind::Command:
    case Kind::Press:
    case Kind::Close:
      break;
    case Kind::Undo:
    case Kind::Redo:
    case Kind::TakeBackLine:
      return row->name;
  }
  return step + Target_Text(event);
}

}  // namespace sylvomex
