// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/append_witness.h"
#include "session/journal.h"
#include "session/journal_reads.h"

namespace sylvomex {

/// Numbers every append to a file of the operator in a journal. When the journal is repeated, what
/// stands in its file already is recognised by that number and not appended again.
class JournalAppends : public AppendWitness {
 public:
  /// known: the appends of the journal so far. reads: tells which files the repetition has written
  /// anew, and hides what the journal appends later from readers. Witness of the whole program for
  /// the object's life.
  JournalAppends(Journal& journal, std::map<long, JournaledAppend> known, JournalReads& reads);
  ~JournalAppends() override;
  JournalAppends(const JournalAppends&) = delete;
  JournalAppends& operator=(const JournalAppends&) = delete;

  void Will_Open(const FilePath& file, bool is_missing) override;
  bool Already_Written(const FilePath& file, std::string_view text) override;
  void Will_Append(const FilePath& file, std::uint64_t offset, std::string_view text) override;
  void Has_Appended(const FilePath& file, std::uint64_t offset, std::string_view text) override;
  void Not_Appended(const FilePath& file, std::uint64_t offset, std::string_view text) override;

  [[nodiscard]] bool Is_Repeating() const override { return journal_.Is_Repeating(); }
  bool Already_Taken(const FilePath& file, std::string_view lines) override;
  void Will_Take(const FilePath& file, std::uint64_t offset, std::string_view lines) override;
  void Has_Taken(const FilePath& file) override;
  void Not_Taken(const FilePath& file) override;

  /// What the repetition found: sentences for the operator.
  [[nodiscard]] const std::vector<std::string>& Findings() const { return findings_; }

 private:
  /// The number of what happens now, if the journal that is repeated tells of it.
  long Repeated_Number(JournalLine::Kind kind, const FilePath& file);
  void Announce(const FilePath& file, std::uint64_t offset, std::string_view text, bool takes);
  [[nodiscard]] bool Is_Taken_From(const std::string& path) const;
  [[nodiscard]] bool Was_Taken(const JournaledAppend& append) const;
  void Hide_Later_Lines(const std::string& path, long done);
  bool Find(const FilePath& file, std::string_view text);
  bool Is_Begun_One_There(const FilePath& file, std::string_view text);
  void Found(const std::string& sentence) { findings_.push_back(sentence); }
  [[noreturn]] void Fail_Again_To_Take(const FilePath& file);
  void Mark(long number, JournaledAppend::State state);

  Journal& journal_;
  std::map<long, JournaledAppend> known_;
  JournalReads& reads_;
  AppendWitness* former_;
  long last_;  // highest number given so far
  // Of the append that runs, and of the taking; 0 for one that the journal does not know yet.
  long present_ = 0;
  long taking_ = 0;
  std::vector<std::string> findings_;
};

}  // namespace sylvomex
