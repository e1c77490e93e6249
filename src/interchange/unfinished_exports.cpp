// SPDX-License-Identifier: MIT
#include "interchange/unfinished_exports.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <system_error>
#include <vector>

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

constexpr int kAttempts = 10;  // another run may take a new folder for a killed one's

/// A descriptor that holds a folder's lock, -1 when another process holds it.
int Locked(const fs::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0 || flock(descriptor, LOCK_EX | LOCK_NB) == 0) return descriptor;
  close(descriptor);
  return -1;
}

void Remove_Locked(const fs::path& folder, int lock) {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
  close(lock);
}

}  // namespace

UnfinishedExport::UnfinishedExport(const fs::path& site) : site_(site) {
  static std::atomic<int> exports = 0;
  const fs::path folder =
      site / kExportFolder / (std::to_string(getpid()) + "_" + std::to_string(++exports));
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return;
    lock_ = Locked(folder);
    if (lock_ < 0) continue;
    if (fs::exists(folder, error)) {
      folder_ = folder;
      return;
    }
    close(lock_);
    lock_ = -1;
  }
}

UnfinishedExport::~UnfinishedExport() {
  if (lock_ < 0) return;
  Remove_Locked(folder_, lock_);
  std::error_code ignored;
  fs::remove(site_ / kExportFolder, ignored);  // stays when another export is under way
}

void Remove_Killed_Exports(const fs::path& site) {
  std::error_code error;
  std::vector<fs::path> folders;
  for (const auto& entry : fs::directory_iterator(site / kExportFolder, error)) {
    folders.push_back(entry.path());
  }
  if (error) return;
  for (const fs::path& folder : folders) {
    if (const int lock = Locked(folder); lock >= 0) Remove_Locked(folder, lock);
  }
  fs::remove(site / kExportFolder, error);
}

}  // namespace sylvomex
