// SPDX-License-Identifier: MIT
// What exports have begun and not finished, in the folder ".sylvomex-export" of their site.
#pragma once

#include <filesystem>

namespace sylvomex {

inline constexpr const char* kExportFolder = ".sylvomex-export";

/// A folder of its own for what one export writes; it goes with the object, and after a kill with
/// the next run.
class UnfinishedExport {
 public:
  explicit UnfinishedExport(const std::filesystem::path& site);
  ~UnfinishedExport();
  UnfinishedExport(const UnfinishedExport&) = delete;
  UnfinishedExport& operator=(const UnfinishedExport&) = delete;

  /// Empty when nothing can be written within the site.
  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }

 private:
  std::filesystem::path site_, folder_;
  int lock_ = -1;  // its holder lives
};

/// Removes what killed exports left in a site, and leaves what running ones write.
void Remove_Killed_Exports(const std::filesystem::path& site);

}  // namespace sylvomex
