// SPDX-License-Identifier: MIT
// An import changes a site as a whole or not at all. New files are written into the folder
// ".sylvomex-import" of the site; when all are complete, a list of them is written, and from then
// on the import is decided: the files are renamed to their places, "site.toml" last. A run after a
// kill finishes a decided import and removes an undecided one.
#pragma once

#include <filesystem>
#include <map>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/killed_import.h"
#include "interchange/site_record.h"

namespace sylvomex {

class ImportTransaction {
 public:
  /// Opens the site. Refused when another import works on it. Nothing is written before the first
  /// call of New_File, Write or Commit.
  explicit ImportTransaction(const std::filesystem::path& folder);
  /// Without Commit all files of this import are removed, and the site is as it was.
  ~ImportTransaction();
  ImportTransaction(const ImportTransaction&) = delete;
  ImportTransaction& operator=(const ImportTransaction&) = delete;

  /// The site as Commit will keep it: the shift is chosen here.
  [[nodiscard]] Site& TheSite() { return site_; }

  /// Where to write the new content of a target (a native path inside the site, see Site::Drives);
  /// the same answer for the same target. Safe for writers in several threads once asked for.
  std::filesystem::path New_File(const std::filesystem::path& target);

  /// A file for this import's own use, gone after it.
  std::filesystem::path Scratch_File(const std::string& name);

  /// New_File with a content at hand. FailedOnTheWay on a full disk.
  void Write(const std::filesystem::path& target, std::string_view content);

  /// Puts all new files into their places and keeps the entry, its time set, in "site.toml".
  void Commit(ImportEntry entry);

  /// Commit without an entry, for changes of TheSite() alone.
  void Commit();

 private:
  void Make_Folder();

  SiteLock lock_;
  Site site_;
  std::filesystem::path folder_;                                  // ".sylvomex-import"
  std::map<std::filesystem::path, std::filesystem::path> files_;  // target to new file
};

/// The source files of an entry with checksums and sizes. Refused for one that cannot be read.
/// stop: as of File_Checksum.
std::vector<SourceFile> Source_Files(const std::vector<std::filesystem::path>& files,
                                     const std::stop_token& stop = {});

}  // namespace sylvomex
