// SPDX-License-Identifier: MIT
// The way of an event from the operator or a script to its handler.
#pragma once

#include "history/history_events.h"
#include "session/kept_journal.h"
#include "session/recorder.h"
#include "session/step_player.h"

namespace sylvomex {

/// What sees an event on its way; nullptr for what is not there.
struct EventPath {
  Recorder* recorder = nullptr;
  KeptJournal* journal = nullptr;
  HistorySwitch* history = nullptr;
};

/// Handle_Event_In, with the event's beginning and end recorded and in the journal.
EventOutcome Handle_Event_On(const EventPath& path, Workspace& w, const OperatorEvent& event);

/// Keeps a history from here on, or no longer, which is recorded and stands in the journal.
void Turn_History_On(const EventPath& path, bool on);

/// Sends the events of a player along the path, and its steps for the history to it. What the path
/// names must outlive the player.
void Serve_Events(PlayerServices& services, const EventPath& path);

}  // namespace sylvomex
