// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace sylvomex {

/// A file that is written beside its place under another name, with the same ending, and put there
/// when it is complete.
class ExportedFile {
 public:
  /// Refused for a place without a folder.
  explicit ExportedFile(const std::filesystem::path& place);
  /// Removes what is not committed.
  ~ExportedFile();
  ExportedFile(const ExportedFile&) = delete;
  ExportedFile& operator=(const ExportedFile&) = delete;

  [[nodiscard]] const std::filesystem::path& Partial() const { return partial_; }
  [[nodiscard]] std::string Name() const { return place_.string(); }

  /// FailedOnTheWay when the file cannot be put in its place.
  void Commit();

 private:
  std::filesystem::path place_, partial_;
};

/// The ending of a name in lower case, with its point.
std::string Lower_Ending(const std::filesystem::path& file);

}  // namespace sylvomex
