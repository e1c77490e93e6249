// SPDX-License-Identifier: MIT
// The journal of a session: every event and every answer, written as it happens. See journal_text.h
// for what it looks like.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/journal_file.h"
#include "session/journal_text.h"
#include "session/recorder.h"
#include "workspace/operator_event.h"

namespace sylvomex {

class Journal {
 public:
  /// Goes on in a journal. file must outlive it.
  explicit Journal(JournalFile& file) : file_(file) {}

  /// Begins a new one.
  void Write_Head(const JournalHead& head) {
    file_.Write(Head_Text(head));
    file_.Mark_Complete();
  }

  /// The handler of an event begins, possibly inside the handler of another event.
  void Begin_Event(const OperatorEvent& event);

  /// The handler that began last has ended: "done", "error", "greyed", "refused" or
  /// "cancelled N", after N steps of its work.
  void End_Event(std::string_view outcome);

  /// A dialog opens; events that begin before its answer lie within it.
  void Dialog_Opens() { places_.push_back(kInDialog); }

  /// It was answered, as in Recorder::Dialog_Answered.
  void Dialog_Answered(DialogKind kind, const std::optional<std::string>& answer);

  /// It was left without an answer.
  void Dialog_Left() { places_.pop_back(); }

  /// The running command runs waiting events.
  void Servicing_Begins() { places_.push_back(++servicings_); }
  void Servicing_Ends() { places_.pop_back(); }

  /// A history is kept from here on, or no longer.
  void Turn_History(bool on);

  /// A comment, written at any time; flushed to the disk when asked for.
  void Comment(const std::string& text, bool flush = false);

  /// The operator has ended the program.
  void Exit();

  /// While a journal is repeated nothing is written, since it stands there already. cursor: of the
  /// journal that is repeated, nullptr for the end of the repetition.
  void Repeat(JournalCursor* cursor);
  [[nodiscard]] JournalCursor* Repeated() const { return repeated_; }

  /// Whether what happens now stands in the journal already.
  [[nodiscard]] bool Is_Repeating() const { return repeated_ != nullptr && !beyond_; }

  /// The journal has nothing more: from here on everything is written.
  void Go_Beyond() { beyond_ = true; }

  [[nodiscard]] const std::string& Failure() const { return file_.Failure(); }

 private:
  static constexpr long kInDialog = 0;

  void Write(std::string line);
  void Mark_Complete();

  JournalFile& file_;
  JournalCursor* repeated_ = nullptr;
  bool beyond_ = false;
  std::time_t time_ = 0;      // of the last time comment
  std::vector<long> places_;  // open dialogs and servicings, the innermost last
  long servicings_ = 0;       // since the outer event began
  int depth_ = 0;             // of the running handlers
  bool is_plain_move_ = false;
  bool is_closed_ = false;
};

}  // namespace sylvomex
