// SPDX-License-Identifier: MIT
#include "interchange/killed_import.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <vector>

#include "interchange/failures.h"
#include "interchange/unfinished_exports.h"
#include "platform/files.h"
#include "platform/name_below.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

namespace fs = std::filesystem;

fs::path Locked_Folder(const fs::path& site) {
  const fs::path drive = site / "c";
  return fs::is_directory(drive) ? drive : site;
}

struct DecidedFile {
  std::string name;    // in the folder of the import
  std::string target;  // in the site
};

/// The list of a decided import, whole: what it does not name is removed. FailedOnTheWay for one
/// that is cut off or leads out of the site.
std::vector<DecidedFile> Decided_Files(const fs::path& decision) {
  const std::string text = Read_Whole_File({decision.string(), decision});
  std::vector<DecidedFile> files;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t middle = text.find('\n', at);
    const std::size_t end = middle == std::string::npos ? middle : text.find('\n', middle + 1);
    if (end == std::string::npos) throw FailedOnTheWay(decision.string() + ": it is cut off");
    files.push_back({text.substr(at, middle - at), text.substr(middle + 1, end - middle - 1)});
    if (!Stays_Below(files.back().name) || !Stays_Below(files.back().target)) {
      throw FailedOnTheWay(decision.string() + ": \"" + files.back().target +
                           "\" leads out of the site");
    }
    at = end + 1;
  }
  return files;
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
  for (const auto& [name, target] : Decided_Files(folder / kImportDecision)) {
    if (fs::exists(folder / name)) Move_Whole(folder / name, site / target);
  }
  Sync_Folder(site);
  fs::remove_all(folder);
} catch (const fs::filesystem_error& error) {
  const fs::path& file = error.path2().empty() ? error.path1() : error.path2();
  throw FailedOnTheWay(file.string() + ": " + error.code().message() +
                       "; the next run goes on here");
} catch (const RunTimeError& error) {
  throw FailedOnTheWay(std::string(error.what()) + "; the next run goes on here");
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
