// SPDX-License-Identifier: MIT
#include "platform/root_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

namespace sylvomex {
namespace {

/// The process that holds the lock of a folder, from lines such as
/// "1: FLOCK ADVISORY WRITE 1234 08:01:5678 0 EOF" (proc(5)).
std::string Holder_Of(int folder) {
  struct stat status = {};
  if (fstat(folder, &status) != 0) return "another program";
  const std::string place = ":" + std::to_string(status.st_ino);
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    std::istringstream items(line);
    std::string number, kind, mode, access, process, where;
    items >> number >> kind >> mode >> access >> process >> where;
    if (kind == "FLOCK" && where.ends_with(place)) return "process " + process;
  }
  return "another program";
}

}  // namespace

RootLock::RootLock(const std::filesystem::path& root)
    : folder_(open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (folder_ < 0 || flock(folder_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
  is_in_use_ = true;
  holder_ = Holder_Of(folder_);
}

RootLock::~RootLock() {
  if (folder_ >= 0) close(folder_);
}

}  // namespace sylvomex
