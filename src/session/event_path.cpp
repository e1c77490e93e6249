// SPDX-License-Identifier: MIT
#include "session/event_path.h"

#include <optional>
#include <string>

#include "platform/work_meter.h"

namespace sylvomex {
namespace {

// steps: of the event's work until it was cancelled.
std::string Outcome_Words(std::optional<EventOutcome> outcome, long steps) {
  if (!outcome) return "refused";
  switch (*outcome) {
    case EventOutcome::Done:
      return "done";
    case EventOutcome::Greyed:
      return "greyed";
    case EventOutcome::Cancelled:
      return "cancelled " + std::to_string(steps);
    case EventOutcome::Error:
      break;
  }
  return "error";
}

// Reports the beginning of an event, and its end however it ends.
class SeenEvent {
 public:
  SeenEvent(const EventPath& path, const OperatorEvent& event) : path_(path) {
    if (path.recorder != nullptr) path.recorder->Begin_Event(event);
    if (path.journal != nullptr) path.journal->Events().Begin_Event(event);
  }
  ~SeenEvent() {
    const long steps = Work_Steps() - steps_before_;
    if (path_.journal != nullptr) {
      path_.journal->Events().End_Event(Outcome_Words(outcome_, steps));
    }
    if (path_.recorder != nullptr) {
      path_.recorder->End_Event(outcome_.value_or(EventOutcome::Error), steps);
    }
  }
  SeenEvent(const SeenEvent&) = delete;
  SeenEvent& operator=(const SeenEvent&) = delete;

  EventOutcome Ended(EventOutcome outcome) {
    outcome_ = outcome;
    return outcome;
  }

 private:
  const EventPath& path_;
  const long steps_before_ = Work_Steps();
  std::optional<EventOutcome> outcome_;
};

}  // namespace

EventOutcome Handle_Event_On(const EventPath& path, Workspace& w, const OperatorEvent& event) {
  SeenEvent seen(path, event);
  History* const history = path.history != nullptr ? path.history->Get() : nullptr;
  return seen.Ended(Handle_Event_In(history, w, event));
}

void Turn_History_On(const EventPath& path, bool on) {
  if (path.history == nullptr) return;
  path.history->Turn(on);
  if (path.recorder != nullptr) path.recorder->Turn_History(on);
  if (path.journal != nullptr) path.journal->Events().Turn_History(on);
}

void Serve_Events(PlayerServices& services, const EventPath& path) {
  services.handle_event = [path](Workspace& w, const OperatorEvent& event) {
    return Handle_Event_On(path, w, event);
  };
  services.history = path.history;
  services.turn_history = [path](bool on) { Turn_History_On(path, on); };
}

}  // namespace sylvomex
