// SPDX-License-Identifier: MIT
#include "session/journal.h"

#include <utility>

#include "platform/wall_clock.h"
#include "session/event_steps.h"

namespace sylvomex {

void Journal::Write(std::string line) {
  if (Is_Repeating() || is_closed_) return;
  is_plain_move_ = false;
  file_.Write(line += '\n');
}

void Journal::Begin_Event(const OperatorEvent& event) {
  if (depth_++ > 0) {
    const long place = places_.empty() ? kInDialog : places_.back();
    const std::string where =
        place == kInDialog ? "within " : "during " + std::to_string(place) + " ";
    return Write(where + Step_Text(event));
  }
  servicings_ = 0;
  Mark_Complete();
  const std::time_t now = Wall_Clock();
  const std::string time = now == time_ ? "" : "# time " + std::to_string(now) + "\n";
  time_ = now;
  Write(time + Step_Text(event));
  is_plain_move_ = event.kind == OperatorEvent::Kind::Move;
}

void Journal::End_Event(std::string_view outcome) {
  if (depth_ == 0 || --depth_ > 0) return;
  // The journal that is repeated ends here, without the end of this event.
  if (Is_Repeating() && repeated_->Peek() == nullptr) Go_Beyond();
  if (!is_plain_move_ || outcome != "done") Write("end " + std::string(outcome));
  Mark_Complete();
}

// The event that is repeated last may be there in part.
void Journal::Mark_Complete() {
  if (!Is_Repeating()) file_.Mark_Complete();
}

void Journal::Dialog_Answered(DialogKind kind, const std::optional<std::string>& answer) {
  Write(answer ? Answer_Step(kind, *answer) : "cancel");
}

void Journal::Comment(const std::string& text, bool flush) {
  file_.Write("# " + text + "\n");
  if (flush) file_.Flush();
}

void Journal::Exit() {
  Write("exit");
  is_closed_ = true;
  file_.Flush();
}

void Journal::Repeat(JournalCursor* cursor) {
  repeated_ = cursor;
  beyond_ = false;
}

void Journal::Turn_History(bool on) { Write(on ? "history on" : "history off"); }

}  // namespace sylvomex
