// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "interchange/told_share.h"
#include "interchange/unfinished_exports.h"

namespace sylvomex {

/// How an export is made.
struct ExportRun {
  std::filesystem::path site;  // that holds the unfinished file; empty: it lies beside its place
  ToldShare told;
};

/// A file that is written under another name, with the same ending, and put into its place when it
/// is complete: within a site, or beside its place where there is no site or it cannot be written.
class ExportedFile {
 public:
  /// Refused for a place without a folder.
  explicit ExportedFile(const std::filesystem::path& place, const std::filesystem::path& site = {});
  /// Removes what is not committed.
  ~ExportedFile();
  ExportedFile(const ExportedFile&) = delete;
  ExportedFile& operator=(const ExportedFile&) = delete;

  [[nodiscard]] const std::filesystem::path& Partial() const { return partial_; }
  [[nodiscard]] std::string Name() const { return place_.string(); }

  /// FailedOnTheWay when the file cannot be put in its place.
  void Commit();

 private:
  std::filesystem::path place_;
  std::optional<UnfinishedExport> within_;  // a site
  std::filesystem::path partial_;
};

/// The ending of a name in lower case, with its point.
std::string Lower_Ending(const std::filesystem::path& file);

}  // namespace sylvomex
