// SPDX-License-Identifier: MIT
// Plays a journal: every event, with its answers and the events inside it where they happened.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/journal.h"
#include "session/script_screen.h"
#include "session/step_player.h"

namespace sylvomex {

/// What came of playing a journal.
struct JournalPlay {
  long events = 0;               // outer ones
  bool last_one_ended = true;    // false: the program ended while its handler ran
  std::vector<std::string> odd;  // sentences on what went otherwise than in the journal
};

class JournalPlayer : public ScreenFeed {
 public:
  /// player plays over screen; journal is the one that is repeated, nullptr where none is written.
  /// All must outlive the object, and so must the cursor.
  JournalPlayer(JournalCursor& cursor, ScriptScreen& screen, StepPlayer& player, Journal* journal);
  ~JournalPlayer() override;
  JournalPlayer(const JournalPlayer&) = delete;
  JournalPlayer& operator=(const JournalPlayer&) = delete;

  /// Plays to the end. An event that fails, as it may have done before, does not end the play; a
  /// dialog beyond the journal's last answer is dismissed. after_event: called after every outer
  /// event. An Exit ends a play that repeats no journal, by SessionEnd; in a journal that is
  /// repeated the program was killed behind it, and its session goes on.
  JournalPlay Play(const std::function<void()>& after_event);

  void Dialog_Opens(QueuedAnswer::Kind wanted, Buttons buttons) override;
  void Servicing_Begins() override;

 private:
  void Play_Outer(const ScriptStep& step);
  void Play_Step(const ScriptStep& step);
  [[nodiscard]] std::optional<long> Steps_Until_Cancelled() const;
  [[nodiscard]] bool Has_Answers_Left() const;
  void Play_Inner(JournalLine::Kind kind, long servicing);
  void Take_End();
  bool Is_Passed_Over(const JournalLine& move);
  void Answer_By(const ScriptStep& answer, QueuedAnswer::Kind wanted, Buttons buttons);
  void Dismiss(QueuedAnswer::Kind wanted, Buttons buttons);
  void Tell(int line, const std::string& what);

  JournalCursor& cursor_;
  ScriptScreen& screen_;
  StepPlayer& player_;
  Journal* journal_;
  JournalPlay play_;
  long servicings_ = 0;  // since the outer event began
  int line_ = 0;         // of the line taken last
};

}  // namespace sylvomex
