// SPDX-License-Identifier: MIT
#include "session/kept_journal.h"

#include <ostream>
#include <utility>

#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

[[noreturn]] void Refuse(const FilePath& file, const std::string& cause) {
  throw RunTimeError(Failure::BadContent, file.name + ", " + cause, file.native);
}

bool Is_Same_Folder(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code failure;
  return std::filesystem::equivalent(a, b, failure) && !failure;
}

UnfinishedJournal Empty_Journal(const FilePath& file, const JournalHead& head) {
  UnfinishedJournal journal{file, {}, {}, false};
  journal.facts.head = head;
  return journal;
}

std::string Events_Text(long events) {
  return std::to_string(events) + (events == 1 ? " event" : " events");
}

}  // namespace

UnfinishedJournal Read_Unfinished_Journal(const FilePath& file, const std::filesystem::path& root) {
  UnfinishedJournal journal{file, Read_Whole_File(file), {}, false};
  journal.facts = Facts_Of_Journal(journal.text);
  if (!journal.facts.head) Refuse(file, "it is no journal");
  if (journal.facts.has_exit) Refuse(file, "its session was ended by Exit, nothing is left to do");
  if (!Is_Same_Folder(journal.facts.head->root, root)) {
    Refuse(file, "it is a journal of " + journal.facts.head->root + ", not of " + root.string());
  }
  journal.is_torn = journal.facts.whole_bytes < journal.text.size();
  journal.text.resize(journal.facts.whole_bytes);
  return journal;
}

bool May_Begin_Journal(const FilePath& file) {
  if (!File_Exists(file)) return true;
  const std::string text = Read_Whole_File(file);
  return text.empty() || Facts_Of_Journal(text).has_exit;
}

KeptJournal::KeptJournal(UnfinishedJournal unfinished, Screen& screen)
    : unfinished_(std::move(unfinished)),
      file_(unfinished_.file, unfinished_.facts.whole_bytes, unfinished_.facts.ended_bytes),
      journal_(file_),
      reads_(journal_, unfinished_.facts, Folder_Of_Kept(unfinished_.file.native)),
      appends_(journal_, unfinished_.facts.appends, reads_),
      screen_(screen, journal_, unfinished_.facts.head->seed) {}

KeptJournal::KeptJournal(const FilePath& file, const JournalHead& head, Screen& screen)
    : KeptJournal(Empty_Journal(file, head), screen) {
  Remove_Kept(file.native);
  journal_.Write_Head(head);
}

std::vector<std::string> KeptJournal::Repeat(Workspace& w, PlayerServices services,
                                             const std::function<void()>& after_event) {
  std::vector<std::string> told = Changed_Files(unfinished_.facts);
  for (std::string& file : told) file.insert(0, "since then: ");
  std::ostream nowhere(nullptr);
  ScriptScreen repeating(nowhere, nowhere);
  Screen& own = screen_.Forward_To(repeating);
  JournalCursor cursor(unfinished_.text, true);
  JournalPlay play;
  {
    StepPlayer player(w, repeating, std::move(services));
    JournalPlayer journal_player(cursor, repeating, player, &journal_);
    play = journal_player.Play(after_event);
  }
  reads_.Is_Done_Again();
  screen_.Forward_To(own);
  told.insert(told.begin(), Events_Text(play.events) + " done again from " + unfinished_.file.name +
                                (play.last_one_ended ? "" : ", the last one had not ended"));
  if (unfinished_.is_torn) told.emplace_back("the last line of the journal was torn and left out");
  told.insert(told.end(), appends_.Findings().begin(), appends_.Findings().end());
  told.insert(told.end(), play.odd.begin(), play.odd.end());
  unfinished_.text.clear();
  return told;
}

}  // namespace sylvomex
