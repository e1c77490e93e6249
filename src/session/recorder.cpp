// SPDX-License-Identifier: MIT
#include "session/recorder.h"

#include <algorithm>
#include <utility>

#include "session/event_steps.h"
#include "session/script_reader.h"

namespace sylvomex {

namespace {

using Kind = OperatorEvent::Kind;

bool Same_Target(const OperatorEvent& a, const OperatorEvent& b) {
  return a.form == b.form && a.control == b.control;
}

}  // namespace

std::string Answer_Step(DialogKind kind, const std::string& answer) {
  switch (kind) {
    case DialogKind::File:
      return "file " + Script_Word(answer);
    case DialogKind::Message:
      return "button " + answer;
    case DialogKind::Input:
      break;
  }
  return "input " + Script_Word(answer);
}

Recorder::Recorder(std::ostream& script, DriveMap drives, double width, double height)
    : script_(script), drives_(std::move(drives)) {
  OperatorEvent size;
  size.kind = Kind::Resize;
  size.x = width;
  size.y = height;
  script_ << Step_Text(size) << std::endl;
}

/// The drive name of a native path on a drive; any other text as it stands.
std::string Recorder::Playable_Text(std::string text) const {
  return text.starts_with('/') ? drives_.Drive_Name(text) : std::move(text);
}

void Recorder::Begin_Event(const OperatorEvent& event) {
  if (running_.empty()) servicings_ = 0;
  running_.push_back(events_.size());
  events_.push_back({event, servicings_, false});
  std::string& text = events_.back().event.text;
  text = Playable_Text(std::move(text));
}

void Recorder::End_Event(EventOutcome outcome, long work_steps) {
  if (running_.empty()) return;
  RecordedEvent& ended = events_[running_.back()];
  if (outcome == EventOutcome::Cancelled) {
    ended.cancelled_after = work_steps;
  } else {
    ended.may_fail = outcome != EventOutcome::Done;
  }
  running_.pop_back();
  if (running_.empty()) Write_Events();
}

void Recorder::Dialog_Answered(DialogKind kind, const std::optional<std::string>& answer) {
  answers_.push_back(answer ? Answer_Step(kind, Playable_Text(*answer)) : "cancel");
}

void Recorder::Events_Serviced() { ++servicings_; }

void Recorder::Turn_History(bool on) {
  Write_Held_Move();
  script_ << "history " << (on ? "on" : "off") << std::endl;
}

void Recorder::Finish() {
  running_.clear();
  if (!events_.empty()) Write_Events();
  Write_Held_Move();
}

/// True when the events are only pointer moves over one control, nested or not: then only the last
/// one has a lasting effect.
bool Recorder::Is_Plain_Move() const {
  return answers_.empty() && std::ranges::all_of(events_, [&](const RecordedEvent& recorded) {
           return recorded.event.kind == Kind::Move && !recorded.may_fail &&
                  !recorded.cancelled_after && Same_Target(recorded.event, events_.front().event);
         });
}

void Recorder::Hold_Move(const OperatorEvent& move) {
  if (held_move_ && !Same_Target(*held_move_, move)) Write_Held_Move();
  held_move_ = move;
}

void Recorder::Write_Held_Move() {
  if (!held_move_) return;
  script_ << Step_Text(*held_move_) << std::endl;
  held_move_.reset();
}

std::string Recorder::Playable_Step(const RecordedEvent& recorded) {
  const std::string step = Step_Text(recorded.event);
  if (recorded.cancelled_after) {
    return "cancelled " + std::to_string(*recorded.cancelled_after) + " " + step;
  }
  return (recorded.may_fail ? "try " : "") + step;
}

void Recorder::Write_Events() {
  if (Is_Plain_Move()) {
    Hold_Move(events_.back().event);
    events_.clear();
    return;
  }
  Write_Held_Move();
  const std::vector<RecordedEvent> events = std::exchange(events_, {});
  const std::vector<std::string> answers = std::exchange(answers_, {});
  for (const std::string& answer : answers) script_ << answer << '\n';
  for (std::size_t i = 1; i < events.size(); ++i) {
    // Events that began before the first servicing arrived while a dialog was open.
    const RecordedEvent& inner = events[i];
    if (inner.servicing > 0) script_ << "during " << inner.servicing << ' ';
    script_ << Playable_Step(inner) << '\n';
  }
  script_ << Playable_Step(events.front()) << std::endl;
}

}  // namespace sylvomex
