// SPDX-License-Identifier: MIT
// The way of an event through the history.
#pragma once

#include <optional>

#include "history/history.h"

namespace sylvomex {

/// Whether there is a history: off at first.
class HistorySwitch {
 public:
  void Turn(bool on) {
    if (on == history_.has_value()) return;
    if (on) {
      history_.emplace();
    } else {
      history_.reset();
    }
  }

  /// nullptr while it is off.
  [[nodiscard]] History* Get() { return history_ ? &*history_ : nullptr; }

 private:
  std::optional<History> history_;
};

/// Handle_Event with a step in the history, or the undo, redo or taking back that the event asks
/// for. Greyed when there is nothing to undo or a command is running; a refusal is reported as an
/// error of the event. history: nullptr for none; undo, redo and taking back are then UnknownName.
EventOutcome Handle_Event_In(History* history, Workspace& w, const OperatorEvent& event);

/// Undo, Redo or TakeBackLine.
bool Is_History_Event(const OperatorEvent& event);

}  // namespace sylvomex
