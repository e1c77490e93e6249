// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/file_watch.h"
#include "platform/write_witness.h"
#include "session/journal.h"
#include "session/lines_then.h"

namespace sylvomex {

/// Notes in a journal the files on which a session depends, as they were when they were first read,
/// and the files that it writes as a whole. Of a file that was read before, up to kLargestKept
/// bytes, the former state is kept, so that the reader meets it again when the session is done
/// again. Watch of the whole program for the object's life.
class JournalReads : public FileWatch, public WriteWitness {
 public:
  static constexpr std::uintmax_t kLargestKept = 16 << 20;

  /// facts: what the journal says of its files already, nothing of it is noted again. folder: where
  /// former states are kept; made when it is needed.
  JournalReads(Journal& journal, const JournalFacts& facts, std::filesystem::path folder);
  ~JournalReads() override;
  void Reads(const FilePath& file, int descriptor, const struct stat& status) override;
  [[nodiscard]] std::uint64_t Visible_Bytes(const FilePath& file, std::uint64_t size) override;
  [[nodiscard]] std::filesystem::path Place_To_Read(const FilePath& file) override;
  void Will_Change(const FilePath& file, bool appends) override;
  void Has_Appended(const FilePath&, std::string_view) override {}

  /// Whether this run of the program has written the file as a whole.
  [[nodiscard]] bool Has_Written(const FilePath& file) const;

  /// The number of the append after which a file is written as a whole, in a session that is not
  /// yet done again so far.
  [[nodiscard]] std::optional<long> Coming_Write(const std::string& path) const;

  /// A file of lines is made, empty, that was missing up to here.
  void Is_Created_Again(const std::string& path);

  /// A file whose lines from an offset on are not yet done again; std::nullopt for no such lines.
  void Hide_From(const std::string& path, std::optional<std::uint64_t> offset);

  /// A file from which lines are taken again later is read as it was, which the next three calls
  /// tell. begin: at which byte the session's first line begins. False, and nothing is done, when
  /// more than kLargestKept bytes stand before it, or when the file is written as a whole first.
  bool Read_As_It_Was(const std::string& path, long first_append, std::uint64_t begin);
  void Has_Again(const std::string& path, std::uint64_t offset, std::string_view lines);
  void Is_Without_Again(const std::string& path, std::uint64_t bytes);

  /// The session is done again: every file is read as it is.
  void Is_Done_Again();

 private:
  BeforeWrite Keep(const std::string& path);
  [[nodiscard]] std::filesystem::path Place_Before_Write(const std::string& path) const;
  [[nodiscard]] bool Was_Missing(const std::string& path) const;

  Journal& journal_;
  std::filesystem::path folder_;
  FileWatch* former_;
  mutable std::mutex mutex_;
  // Native paths.
  std::set<std::string> reads_in_journal_;
  std::set<std::string> writes_in_journal_;
  std::set<std::string> begun_empty_;    // empty when they were read first, or made by the session
  std::set<std::string> not_yet_there_;  // made by the session, which is not yet done again so far
  std::map<std::string, JournaledWrite> again_;  // writes that are not yet done again
  std::set<std::string> written_;                // by this run
  std::map<std::string, std::uint64_t> hidden_from_;
  std::map<std::string, LinesThen> then_;
};

/// The folder beside a journal with the former states of files that its session wrote over.
std::filesystem::path Folder_Of_Kept(const std::filesystem::path& journal);

/// Removes what a journal kept there.
void Remove_Kept(const std::filesystem::path& journal);

/// Sentences on the files that a journal read and that are not what they were. Files that the
/// session itself wrote or lengthened are left out.
std::vector<std::string> Changed_Files(const JournalFacts& facts);

}  // namespace sylvomex
