// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

#include <filesystem>
#include <iterator>

namespace sylvomex {

/// Limits how many files the process can open beyond those that are open, for a scope.
class OpenFilesLimit {
 public:
  explicit OpenFilesLimit(rlim_t more) {
    getrlimit(RLIMIT_NOFILE, &old_);
    const std::filesystem::directory_iterator open("/proc/self/fd");
    const auto count = static_cast<rlim_t>(std::distance(begin(open), end(open)));
    const rlimit limit{count + more, old_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &limit);
  }
  ~OpenFilesLimit() { setrlimit(RLIMIT_NOFILE, &old_); }
  OpenFilesLimit(const OpenFilesLimit&) = delete;
  OpenFilesLimit& operator=(const OpenFilesLimit&) = delete;

 private:
  rlimit old_{};
};

}  // namespace sylvomex
