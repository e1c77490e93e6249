// SPDX-License-Identifier: MIT
#include "session/step_player.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "platform/work_meter.h"
#include "session/block_values.h"
#include "session/event_steps.h"
#include "session/marks_text.h"
#include "session/picture_png.h"
#include "session/picture_vectors.h"
#include "session/repeated_cancel.h"
#include "session/routine_calls.h"
#include "session/step_arguments.h"
#include "session/transcript_text.h"
#include "session/value_compare.h"
#include "session/value_name.h"
#include "session/vector_page.h"
#include "workspace/control_lookup.h"

namespace sylvomex {

namespace {

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

/// The words from an index on, joined by single blanks.
std::string Joined(const ScriptStep& step, std::size_t first, std::string ScriptWord::*form) {
  std::string joined;
  for (std::size_t i = first; i < step.words.size(); ++i) {
    joined += (i == first ? "" : " ") + step.words[i].*form;
  }
  return joined;
}

/// The step nested in another one, from a word on.
ScriptStep Inner_Step(const ScriptStep& step, std::size_t first) {
  return {step.line, {step.words.begin() + static_cast<std::ptrdiff_t>(first), step.words.end()}};
}

/// How many steps contain the innermost one.
int Depth_Of(const ScriptStep& step) {
  int depth = 0;
  for (std::size_t i = 0; i < step.words.size(); ++depth) {
    const std::string& name = step.words[i].text;
    if (name != "try" && name != "during") break;
    i += name == "during" ? 2 : 1;
  }
  return depth;
}

void Require_Shallow(const ScriptStep& step) {
  const int depth = Depth_Of(step);
  if (depth <= kDeepestNesting) return;
  throw StepEnd{kStepFailed, "steps are nested " + std::to_string(depth) + " deep, the limit is " +
                                 std::to_string(kDeepestNesting)};
}

std::string Arity_Text(const std::string& name, std::size_t least, std::size_t most) {
  std::string text = name + " takes ";
  if (most == kAnyNumber) {
    text += "at least " + std::to_string(least);
  } else if (least == most) {
    text += most == 0 ? "no" : std::to_string(most);
  } else {
    text += std::to_string(least) + " to " + std::to_string(most);
  }
  return text + (least == 1 && most == 1 ? " argument" : " arguments");
}

}  // namespace

const StepPlayer::Row& StepPlayer::Find_Row(const ScriptStep& step) {
  static constexpr std::array kRows{
      Row{"menu", 1, 1, &StepPlayer::Play_Event},
      Row{"command", 1, 1, &StepPlayer::Play_Event},
      Row{"input", 1, 1, &StepPlayer::Play_Input},
      Row{"file", 1, 1, &StepPlayer::Play_File},
      Row{"button", 1, 1, &StepPlayer::Play_Button},
      Row{"cancel", 0, 0, &StepPlayer::Play_Cancel},
      Row{"set", 2, 2, &StepPlayer::Play_Event},
      Row{"press", 1, 1, &StepPlayer::Play_Event},
      Row{"click", 3, kAnyNumber, &StepPlayer::Play_Event},
      Row{"doubleclick", 3, kAnyNumber, &StepPlayer::Play_Event},
      Row{"move", 3, 3, &StepPlayer::Play_Event},
      Row{"wheel", 4, 5, &StepPlayer::Play_Event},
      Row{"pan", 3, 4, &StepPlayer::Play_Event},
      Row{"key", 1, kAnyNumber, &StepPlayer::Play_Event},
      Row{"resize", 3, 3, &StepPlayer::Play_Event},
      Row{"close", 1, 1, &StepPlayer::Play_Event},
      Row{"undo", 0, 0, &StepPlayer::Play_History_Event},
      Row{"redo", 0, 0, &StepPlayer::Play_History_Event},
      Row{"takeback", 0, 0, &StepPlayer::Play_History_Event},
      Row{"history", 1, 1, &StepPlayer::Play_History},
      Row{"print", 1, 1, &StepPlayer::Play_Print},
      Row{"marks", 1, 1, &StepPlayer::Play_Marks},
      Row{"call", 1, kAnyNumber, &StepPlayer::Play_Call},
      Row{"expect", 2, kAnyNumber, &StepPlayer::Play_Expect},
      Row{"save", 2, 2, &StepPlayer::Play_Save},
      Row{"screenshot", 1, 2, &StepPlayer::Play_Screenshot},
      Row{"during", 2, kAnyNumber, &StepPlayer::Play_During},
      Row{"say", 1, kAnyNumber, &StepPlayer::Play_Say},
      Row{"try", 1, kAnyNumber, &StepPlayer::Play_Try},
      Row{"cancelled", 2, kAnyNumber, &StepPlayer::Play_Cancelled},
  };
  const std::string& name = step.words.front().text;
  const auto row = std::ranges::find_if(kRows, [&](const Row& r) { return name == r.name; });
  if (row == kRows.end()) throw StepEnd{kStepFailed, "there is no step " + Quoted(name)};
  const std::size_t arguments = step.words.size() - 1;
  if (arguments < row->least || arguments > row->most) {
    throw StepEnd{kStepFailed, Arity_Text(name, row->least, row->most)};
  }
  return *row;
}

StepPlayer::StepPlayer(Workspace& w, ScriptScreen& screen, PlayerServices services)
    : w_(w), screen_(screen), services_(std::move(services)) {
  screen_.Play_Queued_Steps_By([this](const ScriptStep& step) { Play_Queued(step); });
}

void StepPlayer::Play(const ScriptStep& step) {
  Require_Shallow(step);
  (this->*Find_Row(step).play)(step);
}

/// Plays a step queued for an event servicing. Its failure must not count as one of the running
/// step, so it ends the session.
void StepPlayer::Play_Queued(const ScriptStep& step) {
  try {
    Play(step);
  } catch (const StepEnd& failure) {
    services_.report(step.line, failure.reason);
    end_ = SessionEnd{failure.status};
    throw *end_;
  }
}

EventOutcome StepPlayer::Handle(const OperatorEvent& event) {
  EventOutcome outcome = EventOutcome::Done;
  try {
    outcome = services_.handle_event(w_, event);
  } catch (const std::exception& refusal) {
    throw StepEnd{kStepFailed, refusal.what()};
  }
  if (end_) throw *end_;
  if (screen_.Ended()) throw SessionEnd{kAllStepsDone};
  if (const auto& failure = screen_.Failure_Of_Dialog()) throw *failure;
  return outcome;
}

void StepPlayer::Play_Event(const ScriptStep& step) {
  const std::string& target = step.words[1].text;
  const EventOutcome outcome = Handle(Event_Of_Step(step.words));
  if (outcome == EventOutcome::Error) {
    throw StepEnd{kCommandError, Joined(step, 0, &ScriptWord::raw) + " ended in an error"};
  }
  if (outcome == EventOutcome::Greyed) {
    screen_.Write_Line("greyed " + target);
    throw StepEnd{kStepFailed, "the menu item " + target + " is greyed"};
  }
}

void StepPlayer::Play_History_Event(const ScriptStep& step) {
  const std::string& name = step.words.front().text;
  if (services_.history == nullptr || services_.history->Get() == nullptr) {
    throw StepEnd{kStepFailed, name + " needs a history: play history on first"};
  }
  const EventOutcome outcome = Handle(Event_Of_Step(step.words));
  if (outcome == EventOutcome::Error) throw StepEnd{kCommandError, name + " ended in an error"};
  if (outcome == EventOutcome::Greyed) {
    const bool is_early = services_.history->Get()->Is_In_Event();
    throw StepEnd{kStepFailed, is_early ? name + " has to wait: a command is running"
                                        : "there is nothing for " + name + " to do"};
  }
  screen_.Write_Line(name + " " + Quoted(services_.history->Get()->Told()));
}

void StepPlayer::Play_History(const ScriptStep& step) {
  const std::string& word = step.words[1].text;
  if (word != "on" && word != "off") {
    throw StepEnd{kStepFailed, "history takes on or off, not " + Quoted(word)};
  }
  if (!services_.turn_history) throw StepEnd{kStepFailed, "no history can be kept here"};
  services_.turn_history(word == "on");
}

void StepPlayer::Play_Input(const ScriptStep& step) {
  screen_.Queue_Answer({QueuedAnswer::Kind::Input, step.words[1].text});
}

void StepPlayer::Play_File(const ScriptStep& step) {
  screen_.Queue_Answer({QueuedAnswer::Kind::File, step.words[1].text});
}

void StepPlayer::Play_Button(const ScriptStep& step) {
  constexpr std::array kButtons{"ok", "cancel", "yes", "no"};
  const std::string& name = step.words[1].text;
  if (std::ranges::find(kButtons, name) == kButtons.end()) {
    throw StepEnd{kStepFailed, Quoted(name) + " is none of ok, cancel, yes, no"};
  }
  screen_.Queue_Answer({QueuedAnswer::Kind::Button, name});
}

void StepPlayer::Play_Cancel(const ScriptStep&) {
  screen_.Queue_Answer({QueuedAnswer::Kind::Cancel, {}});
}

std::string StepPlayer::Value_Of(const std::string& name) {
  try {
    return Block_Value(w_, name);
  } catch (const std::exception& failure) {
    throw StepEnd{kStepFailed, name + ": " + failure.what()};
  }
}

Picture& StepPlayer::Picture_Of(const std::string& name) {
  const WindowName place = Split_Window(name);
  if (const auto control = Parse_Control_Name(place.control)) {
    const AnyControl found = Find_Control(w_, place.form, *control);
    if (Picture* const* const picture = std::get_if<Picture*>(&found)) return **picture;
  }
  throw StepEnd{kStepFailed, "there is no picture " + name};
}

void StepPlayer::Play_Print(const ScriptStep& step) {
  const std::string& name = step.words[1].text;
  screen_.Write_Line(name + " = " + Value_Of(name));
}

void StepPlayer::Play_Marks(const ScriptStep& step) {
  const Picture& picture = Picture_Of(step.words[1].text);
  for (const Mark& mark : picture.marks) screen_.Write_Line(Mark_Text(picture, mark));
  for (const Mark& mark : picture.floating) screen_.Write_Line(Mark_Text(picture, mark));
}

void StepPlayer::Play_Call(const ScriptStep& step) {
  const std::string& routine = step.words[1].text;
  std::vector<std::string> arguments;
  for (std::size_t i = 2; i < step.words.size(); ++i) arguments.push_back(step.words[i].text);
  try {
    const std::string results = Call_Routine(w_, routine, arguments);
    screen_.Write_Line(Joined(step, 1, &ScriptWord::raw) + " = " + results);
  } catch (const RunTimeError& error) {
    screen_.Report_Error(routine, error.what(), error.Native_Path().string());
    throw StepEnd{kCommandError, routine + " ended in an error"};
  }
}

void StepPlayer::Play_Expect(const ScriptStep& step) {
  const std::string& name = step.words[1].text;
  const std::string value = Value_Of(name);
  const std::string expected = Joined(step, 2, &ScriptWord::text);
  if (Values_Agree(value, expected)) return;
  throw StepEnd{kStepFailed, name + " is " + Quoted(value) + ", expected was " + Quoted(expected)};
}

void StepPlayer::Play_Save(const ScriptStep& step) {
  const std::string& name = step.words[1].text;
  const bool whole_window =
      Find_Form(w_, name) != nullptr && Is_Vector_File(std::filesystem::path(step.words[2].text));
  const Picture* const picture = whole_window ? nullptr : &Picture_Of(name);
  try {
    const std::filesystem::path file = File_Argument(w_.Drives, step.words[2].text);
    if (whole_window) {
      Save_Window_Vectors(w_, name, file);
    } else if (Is_Vector_File(file)) {
      Save_Picture_Vectors(w_, *picture, file);
    } else {
      Save_Picture_Png(*picture, file);
    }
  } catch (const std::exception& failure) {
    throw StepEnd{kStepFailed, failure.what()};
  }
}

void StepPlayer::Play_Screenshot(const ScriptStep& step) {
  if (services_.pictures == nullptr) {
    throw StepEnd{kStepFailed, "a screenshot needs the desktop"};
  }
  const bool names_window = step.words.size() > 2;
  const std::string form = names_window ? step.words[1].text : "Form1";
  if (Find_Form(w_, form) == nullptr) {
    throw StepEnd{kStepFailed, "there is no window " + form};
  }
  try {
    services_.pictures->Save_Window(form, File_Argument(w_.Drives, step.words.back().text));
  } catch (const std::exception& failure) {
    throw StepEnd{kStepFailed, failure.what()};
  }
}

void StepPlayer::Play_During(const ScriptStep& step) {
  const long n = Whole_Argument(step.words[1].text);
  if (n < 1) throw StepEnd{kStepFailed, "event servicings are counted from 1"};
  ScriptStep queued = Inner_Step(step, 2);
  Find_Row(queued);
  screen_.Queue_Step(n, std::move(queued));
}

void StepPlayer::Play_Say(const ScriptStep& step) {
  screen_.Write_Line("say " + Joined(step, 1, &ScriptWord::text));
}

/// Plays an event and cancels it after a number of steps of its work.
void StepPlayer::Play_Cancelled(const ScriptStep& step) {
  RepeatedCancel watcher(Whole_Argument(step.words[1].text),
                         [this] { return screen_.Answers_Left() > 0; });
  const ScriptStep inner = Inner_Step(step, 2);
  const std::string text = Joined(step, 2, &ScriptWord::raw);
  Find_Row(inner);
  if (!Is_Event_Step(inner.words.front().text)) {
    throw StepEnd{kStepFailed, text + " is no event that could be cancelled"};
  }
  const WatchedWork watched(&watcher);
  const EventOutcome outcome = Handle(Event_Of_Step(inner.words));
  if (outcome == EventOutcome::Error) throw StepEnd{kCommandError, text + " ended in an error"};
  if (outcome != EventOutcome::Cancelled) {
    throw StepEnd{kStepFailed, text + " ended before it was cancelled"};
  }
}

void StepPlayer::Play_Try(const ScriptStep& step) {
  ScriptStep tried = Inner_Step(step, 1);
  // A step queued for later is tried when it runs.
  if (tried.words.front().text == "during" && tried.words.size() > 2) {
    tried.words.insert(tried.words.begin() + 2, step.words.front());
  }
  try {
    Play(tried);
  } catch (const StepEnd&) {
    screen_.Drop_Failure();
  }
}

}  // namespace sylvomex
