// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/file_watch.h"
#include "platform/write_witness.h"
#include "session/journal.h"

namespace sylvomex {

/// Notes in a journal the files on which a session depends, as they were when they were first read,
/// and the files that it writes as a whole. Watch of the whole program for the object's life.
class JournalReads : public FileWatch, public WriteWitness {
 public:
  explicit JournalReads(Journal& journal);
  ~JournalReads() override;
  void Reads(const FilePath& file, int descriptor, const struct stat& status) override;
  [[nodiscard]] std::uint64_t Visible_Bytes(const FilePath& file, std::uint64_t size) override;
  void Will_Change(const FilePath& file, bool appends) override;
  void Has_Appended(const FilePath&, std::string_view) override {}

  /// Whether this run of the program has written the file as a whole.
  [[nodiscard]] bool Has_Written(const FilePath& file) const;

  /// A file whose lines from an offset on are not yet done again; std::nullopt for no such lines.
  void Hide_From(const std::string& path, std::optional<std::uint64_t> offset);

  /// What a journal says of its files: nothing of it is noted again.
  void Knows(const JournalFacts& facts);

 private:
  Journal& journal_;
  FileWatch* former_;
  mutable std::mutex mutex_;
  // Native paths.
  std::set<std::string> reads_in_journal_;
  std::set<std::string> writes_in_journal_;
  std::set<std::string> written_;  // by this run
  std::map<std::string, std::uint64_t> hidden_from_;
};

/// Sentences on the files that a journal read and that are not what they were. Files that the
/// session itself wrote or lengthened are left out.
std::vector<std::string> Changed_Files(const JournalFacts& facts);

}  // namespace sylvomex
