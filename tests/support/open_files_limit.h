// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <iterator>

#include "support/resource_limit.h"

namespace sylvomex {

/// Limits how many files the process can open beyond those that are open, for a scope.
class OpenFilesLimit : public ResourceLimit {
 public:
  explicit OpenFilesLimit(rlim_t more) : ResourceLimit(RLIMIT_NOFILE, Open_Now() + more) {}

 private:
  static rlim_t Open_Now() {
    const std::filesystem::directory_iterator open("/proc/self/fd");
    return static_cast<rlim_t>(std::distance(begin(open), end(open)));
  }
};

}  // namespace sylvomex
