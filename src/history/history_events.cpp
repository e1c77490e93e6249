// SPDX-License-Identifier: MIT
#include "history/history_events.h"

namespace sylvomex {
namespace {

using Kind = OperatorEvent::Kind;

class Passage {
 public:
  Passage(History& history, Workspace& w, const OperatorEvent& event) : history_(history), w_(w) {
    history_.Before(w_, event);
  }
  ~Passage() { history_.After(w_); }
  Passage(const Passage&) = delete;
  Passage& operator=(const Passage&) = delete;

 private:
  History& history_;
  Workspace& w_;
};

bool Go_Through(History& history, Workspace& w, Kind kind) {
  if (kind == Kind::Undo) return history.Undo(w);
  return kind == Kind::Redo ? history.Redo(w) : history.Take_Back_Line(w);
}

const char* Name_Of(Kind kind) {
  if (kind == Kind::Undo) return "Undo";
  return kind == Kind::Redo ? "Redo" : "Take_Back_Line";
}

}  // namespace

bool Is_History_Event(const OperatorEvent& event) {
  return event.kind == Kind::Undo || event.kind == Kind::Redo || event.kind == Kind::TakeBackLine;
}

EventOutcome Handle_Event_In(History* history, Workspace& w, const OperatorEvent& event) {
  if (history == nullptr) return Handle_Event(w, event);
  if (!Is_History_Event(event)) {
    const Passage passage(*history, w, event);
    const EventOutcome outcome = Handle_Event(w, event);
    if (outcome == EventOutcome::Cancelled) history->Give_Back(w);
    return outcome;
  }
  bool done = false;
  const EventOutcome outcome =
      Run_Handler(w, Name_Of(event.kind), [&] { done = Go_Through(*history, w, event.kind); });
  return outcome == EventOutcome::Done && !done ? EventOutcome::Greyed : outcome;
}

}  // namespace sylvomex
