// SPDX-License-Identifier: MIT
// Plays the steps of a script over a block.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "history/history_events.h"
#include "session/script_reader.h"
#include "session/script_screen.h"
#include "session/step_end.h"
#include "session/window_pictures.h"
#include "workspace/event_dispatch.h"

namespace sylvomex {

/// The player's surroundings.
struct PlayerServices {
  /// Runs an operator event; never empty.
  std::function<EventOutcome(Workspace&, const OperatorEvent&)> handle_event;
  /// Reports why the step on a line ended the session; never empty.
  std::function<void(int line, const std::string& reason)> report;
  /// The session's history, and what turns it on and off; empty where none can be kept.
  HistorySwitch* history = nullptr;
  std::function<void(bool)> turn_history;
  /// Pictures of the windows; nullptr without a desktop.
  WindowPictures* pictures = nullptr;
};

inline constexpr int kDeepestNesting = 100;

class StepPlayer {
 public:
  /// screen: the one that w uses, directly or through another; it and w must outlive the player.
  StepPlayer(Workspace& w, ScriptScreen& screen, PlayerServices services);

  /// Plays one step to its end. Steps may be nested kDeepestNesting deep by `during` and `try`.
  /// Throws StepEnd when it failed or its command ended in an error, SessionEnd when the session is
  /// over.
  void Play(const ScriptStep& step);

 private:
  struct Row {
    const char* name;
    std::size_t least;  // smallest number of arguments
    std::size_t most;
    void (StepPlayer::*play)(const ScriptStep& step);
  };
  static const Row& Find_Row(const ScriptStep& step);

  void Play_Event(const ScriptStep& step);
  void Play_History_Event(const ScriptStep& step);
  void Play_History(const ScriptStep& step);
  void Play_Input(const ScriptStep& step);
  void Play_File(const ScriptStep& step);
  void Play_Button(const ScriptStep& step);
  void Play_Cancel(const ScriptStep& step);
  void Play_Print(const ScriptStep& step);
  void Play_Marks(const ScriptStep& step);
  void Play_Call(const ScriptStep& step);
  void Play_Expect(const ScriptStep& step);
  void Play_Save(const ScriptStep& step);
  void Play_Screenshot(const ScriptStep& step);
  void Play_During(const ScriptStep& step);
  void Play_Say(const ScriptStep& step);
  void Play_Try(const ScriptStep& step);
  void Play_Cancelled(const ScriptStep& step);

  void Play_Queued(const ScriptStep& step);
  EventOutcome Handle(const OperatorEvent& event);
  std::string Value_Of(const std::string& name);
  Picture& Picture_Of(const std::string& name);

  Workspace& w_;
  ScriptScreen& screen_;
  PlayerServices services_;
  std::optional<SessionEnd> end_;  // the session is over, whatever the running command does
};

}  // namespace sylvomex
