// SPDX-License-Identifier: MIT
// What an import leaves in the folder ".sylvomex-import" of its site: see import_transaction.h.
#pragma once

#include <filesystem>

namespace sylvomex {

inline constexpr const char* kImportFolder = ".sylvomex-import";

/// In that folder: the list of the files that a decided import puts in place. Two lines each: the
/// new file's name in the folder, then its target's path within the site.
inline constexpr const char* kImportDecision = "decided";

/// Puts the files of a decided import in place and removes its folder. FailedOnTheWay with the file
/// when that cannot be done; the next run goes on there.
void Carry_Out_Import(const std::filesystem::path& site);

/// Finishes or removes what a killed import left in a site, unless another process imports now, and
/// removes what killed exports left.
void Finish_Killed_Import(const std::filesystem::path& site);

/// The lock of a site, held by one import at a time and free again after a kill. A workstation that
/// works on the site locks the site's own folder and is not disturbed.
class SiteLock {
 public:
  explicit SiteLock(const std::filesystem::path& site);
  ~SiteLock();
  SiteLock(const SiteLock&) = delete;
  SiteLock& operator=(const SiteLock&) = delete;

  [[nodiscard]] bool Is_Held() const { return descriptor_ >= 0; }

 private:
  int descriptor_ = -1;
};

/// What was done to the entries of a folder reaches the disk.
void Sync_Folder(const std::filesystem::path& folder);

}  // namespace sylvomex
