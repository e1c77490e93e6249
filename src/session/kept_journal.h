// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "session/journal_appends.h"
#include "session/journal_player.h"
#include "session/journal_reads.h"
#include "session/journal_screen.h"

namespace sylvomex {

struct Workspace;

/// The journal of a session that was not ended by its operator.
struct UnfinishedJournal {
  FilePath file;
  std::string text;  // its whole lines
  JournalFacts facts;
  bool is_torn = false;  // a last line without its end was left out
};

/// Reads it. RunTimeError when it cannot be read, is no journal, was ended, or is one of another
/// root than that.
UnfinishedJournal Read_Unfinished_Journal(const FilePath& file, const std::filesystem::path& root);

/// True for a file that may be written over by a new journal: missing, empty or of a session that
/// was ended.
bool May_Begin_Journal(const FilePath& file);

/// A journal with all that writes it: the events' and answers' way to it, the files that are read
/// and the lines that are appended. One a program.
class KeptJournal {
 public:
  /// Begins a journal. screen: where the dialogs appear; must outlive the object.
  /// RunTimeError when the file cannot be written.
  KeptJournal(const FilePath& file, const JournalHead& head, Screen& screen);

  /// Goes on in one. Nothing of it is done before Repeat.
  KeptJournal(UnfinishedJournal unfinished, Screen& screen);

  /// The screen for the block.
  [[nodiscard]] JournalScreen& Front() { return screen_; }
  [[nodiscard]] Journal& Events() { return journal_; }

  /// Plays the unfinished journal over a started block, whose screen leads to Front(). What stands
  /// in the files already is not appended again. services: the way of the events; after_event:
  /// called after each one. Returns sentences for the operator: how much was done, what was odd,
  /// which files have changed since.
  std::vector<std::string> Repeat(Workspace& w, PlayerServices services,
                                  const std::function<void()>& after_event);

  /// Waits until it is on the disk.
  void Flush() { file_.Flush(); }

  /// Why the journal is not written any more; empty as long as it is.
  [[nodiscard]] const std::string& Failure() const { return file_.Failure(); }

 private:
  UnfinishedJournal unfinished_;
  JournalFile file_;
  Journal journal_;
  JournalReads reads_;
  JournalAppends appends_;
  JournalScreen screen_;
};

}  // namespace sylvomex
