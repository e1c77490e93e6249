// SPDX-License-Identifier: MIT
#include "interchange/killed_import.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string>
#include <system_error>

#include "interchange/failures.h"
#include "interchange/unfinished_exports.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

fs::path Locked_Folder(const fs::path& site) {
  const fs::path drive = site / "c";
  return fs::is_directory(drive) ? drive : site;
}

/// Renames; across file systems copies beside the target first.
void Move_Whole(const fs::path& from, const fs::path& to) {
  fs::create_directories(to.parent_path());
  std::error_code error;
  fs::rename(from, to, error);
  if (error.value() == EXDEV) {
    const fs::path beside = to.string() + ".sylvomex-part";
    fs::copy_file(from, beside, fs::copy_options::overwrite_existing);
    fs::rename(beside, to);
    fs::remove(from);
  } else if (error) {
    throw fs::filesystem_error("rename", from, to, error);
  }
}

}  // namespace

void Sync_Folder(const fs::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

void Carry_Out_Import(const fs::path& site) try {
  const fs::path folder = site / kImportFolder;
  std::ifstream decision(folder / kImportDecision);
  std::string name;
  std::string target;
  while (std::getline(decision, name) && std::getline(decision, target)) {
    if (fs::exists(folder / name)) Move_Whole(folder / name, site / target);
  }
  Sync_Folder(site);
  fs::remove_all(folder);
} catch (const fs::filesystem_error& error) {
  throw FailedOnTheWay(error.path2().string() + ": " + error.code().message() +
                       "; the next run goes on here");
}

void Finish_Killed_Import(const fs::path& folder) {
  Remove_Killed_Exports(folder);
  const fs::path left = folder / kImportFolder;
  if (!fs::exists(left)) return;
  const SiteLock lock(folder);
  if (!lock.Is_Held()) return;
  if (fs::exists(left / kImportDecision)) {
    Carry_Out_Import(folder);
  } else {
    std::error_code ignored;
    fs::remove_all(left, ignored);
  }
}

SiteLock::SiteLock(const fs::path& folder)
    : descriptor_(open(Locked_Folder(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (descriptor_ < 0 || flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return;
  close(descriptor_);
  descriptor_ = -1;
}

SiteLock::~SiteLock() {
  if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace sylvomex
