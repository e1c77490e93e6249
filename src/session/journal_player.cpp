// SPDX-License-Identifier: MIT
#include "session/journal_player.h"

#include <cstdlib>
#include <utility>

#include "platform/wall_clock.h"
#include "session/repeated_cancel.h"
#include "session/transcript_text.h"

namespace sylvomex {
namespace {

using Kind = JournalLine::Kind;

// The wall clock stands at the time of the event that is played.
class HeldClock {
 public:
  HeldClock() = default;
  ~HeldClock() { Hold_Wall_Clock(std::nullopt); }
  HeldClock(const HeldClock&) = delete;
  HeldClock& operator=(const HeldClock&) = delete;
  static void Stand_At(std::time_t time) { Hold_Wall_Clock(time); }
};

bool Is_Move(const JournalLine& line) {
  return line.kind == Kind::Event && line.step.words.size() > 1 &&
         line.step.words.front().text == "move";
}

std::string Step_Line(const ScriptStep& step) {
  std::string text;
  for (const ScriptWord& word : step.words) text += (text.empty() ? "" : " ") + word.raw;
  return text;
}

bool Fits(const ScriptStep& answer, QueuedAnswer::Kind wanted, Buttons buttons) {
  const std::string& name = answer.words.front().text;
  if (wanted == QueuedAnswer::Kind::Input) return name == "input" || name == "cancel";
  if (wanted == QueuedAnswer::Kind::File) return name == "file" || name == "cancel";
  if (name != "button") return false;
  const std::string& button = answer.words[1].text;
  switch (buttons) {
    case Buttons::OkCancel:
      return button == "ok" || button == "cancel";
    case Buttons::YesNo:
      return button == "yes" || button == "no";
    case Buttons::Ok:
      break;
  }
  return button == "ok";
}

}  // namespace

JournalPlayer::JournalPlayer(JournalCursor& cursor, ScriptScreen& screen, StepPlayer& player,
                             Journal* journal)
    : cursor_(cursor), screen_(screen), player_(player), journal_(journal) {
  screen_.Feed_By(this);
  if (journal_ != nullptr) journal_->Repeat(&cursor_);
}

JournalPlayer::~JournalPlayer() {
  screen_.Feed_By(nullptr);
  if (journal_ != nullptr) journal_->Repeat(nullptr);
}

JournalPlay JournalPlayer::Play(const std::function<void()>& after_event) {
  const HeldClock clock;
  while (const JournalLine* const line = cursor_.Peek()) {
    const JournalLine taken = *line;
    line_ = taken.step.line;
    cursor_.Take();
    if (taken.kind != Kind::Event) {
      Tell(line_, "it belongs to no event");
    } else if (!Is_Passed_Over(taken)) {
      HeldClock::Stand_At(cursor_.Time());
      Play_Outer(taken.step);
      after_event();
    }
  }
  for (const int line : cursor_.Damaged_Lines()) Tell(line, "it is damaged and was passed over");
  return std::move(play_);
}

/// A move that another one over the same control follows has no lasting effect.
bool JournalPlayer::Is_Passed_Over(const JournalLine& move) {
  if (!Is_Move(move)) return false;
  const JournalLine* const next = cursor_.Peek();
  return next != nullptr && Is_Move(*next) && next->step.words[1].text == move.step.words[1].text;
}

void JournalPlayer::Play_Outer(const ScriptStep& step) {
  servicings_ = 0;
  ++play_.events;
  if (const std::optional<long> steps = Steps_Until_Cancelled()) {
    RepeatedCancel watcher(*steps, [this] { return Has_Answers_Left(); });
    const WatchedWork watched(&watcher);
    Play_Step(step);
  } else {
    Play_Step(step);
  }
  Take_End();
  // A plain move has no end of its own, nor has the step history.
  const std::string& name = step.words.front().text;
  if (name == "move" || name == "history") play_.last_one_ended = true;
}

/// How far the event that was taken went before the operator cancelled it, if so.
std::optional<long> JournalPlayer::Steps_Until_Cancelled() const {
  JournalCursor ahead = cursor_;
  for (const JournalLine* line = ahead.Peek(); line != nullptr && line->kind != Kind::Event;
       line = ahead.Peek()) {
    if (line->kind == Kind::End) {
      const auto& words = line->step.words;
      if (words.size() != 3 || words[1].text != "cancelled") return std::nullopt;
      return std::strtol(words[2].text.c_str(), nullptr, 10);
    }
    ahead.Take();
  }
  return std::nullopt;
}

/// Of the event that was taken.
bool JournalPlayer::Has_Answers_Left() const {
  JournalCursor ahead = cursor_;
  for (const JournalLine* line = ahead.Peek();
       line != nullptr && line->kind != Kind::Event && line->kind != Kind::End;
       line = ahead.Peek()) {
    if (line->kind == Kind::Answer) return true;
    ahead.Take();
  }
  return false;
}

void JournalPlayer::Play_Step(const ScriptStep& step) {
  try {
    player_.Play(step);
  } catch (const StepEnd&) {
    screen_.Drop_Failure();
  } catch (const SessionEnd&) {
    if (journal_ == nullptr) throw;
    screen_.Go_On();
  }
}

/// Passes over what the event left: its end, and what did not happen again.
void JournalPlayer::Take_End() {
  play_.last_one_ended = false;
  for (const JournalLine* next = cursor_.Peek(); next != nullptr && next->kind != Kind::Event;
       next = cursor_.Peek()) {
    line_ = next->step.line;
    if (next->kind == Kind::End) {
      play_.last_one_ended = true;
    } else {
      const bool is_file =
          next->kind == Kind::Create || next->kind == Kind::Append || next->kind == Kind::Take;
      Tell(line_, is_file ? "nothing was appended or taken here this time"
                          : Quoted(Step_Line(next->step)) + " was not asked for");
    }
    cursor_.Take();
  }
  if (cursor_.Peek() != nullptr) play_.last_one_ended = true;
}

void JournalPlayer::Play_Inner(Kind kind, long servicing) {
  for (const JournalLine* next = cursor_.Peek();
       next != nullptr && next->kind == kind && next->number == servicing; next = cursor_.Peek()) {
    const ScriptStep step = next->step;
    line_ = step.line;
    cursor_.Take();
    Play_Step(step);
  }
}

void JournalPlayer::Servicing_Begins() { Play_Inner(Kind::During, ++servicings_); }

void JournalPlayer::Dialog_Opens(QueuedAnswer::Kind wanted, Buttons buttons) {
  Play_Inner(Kind::Within, 0);
  const JournalLine* const next = cursor_.Peek();
  if (next == nullptr) {
    if (journal_ != nullptr) journal_->Go_Beyond();
    return Dismiss(wanted, buttons);
  }
  if (next->kind != Kind::Answer || !Fits(next->step, wanted, buttons)) {
    Tell(next->step.line, "a dialog that was not open then was dismissed before it");
    return Dismiss(wanted, buttons);
  }
  const ScriptStep answer = next->step;
  line_ = answer.line;
  cursor_.Take();
  Answer_By(answer, wanted, buttons);
}

void JournalPlayer::Answer_By(const ScriptStep& answer, QueuedAnswer::Kind wanted,
                              Buttons buttons) {
  const bool is_queued = wanted != QueuedAnswer::Kind::Button || buttons != Buttons::Ok;
  if (!is_queued) return;
  const bool is_cancel = answer.words.front().text == "cancel";
  screen_.Queue_Answer(is_cancel ? QueuedAnswer{QueuedAnswer::Kind::Cancel, {}}
                                 : QueuedAnswer{wanted, answer.words[1].text});
}

void JournalPlayer::Dismiss(QueuedAnswer::Kind wanted, Buttons buttons) {
  if (wanted != QueuedAnswer::Kind::Button) {
    screen_.Queue_Answer({QueuedAnswer::Kind::Cancel, {}});
  } else if (buttons != Buttons::Ok) {
    screen_.Queue_Answer({wanted, buttons == Buttons::YesNo ? "no" : "cancel"});
  }
}

void JournalPlayer::Tell(int line, const std::string& what) {
  play_.odd.push_back("line " + std::to_string(line) + " of the journal: " + what);
}

}  // namespace sylvomex
