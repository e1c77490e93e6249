// SPDX-License-Identifier: MIT
// Limits what the process can still take of memory, for the scope of a test.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <fstream>

#include "support/resource_limit.h"

namespace sylvomex {

class AddressSpaceLimit : public ResourceLimit {
 public:
  /// more: bytes beyond what the process has mapped now.
  explicit AddressSpaceLimit(std::uint64_t more) : ResourceLimit(RLIMIT_AS, Mapped_Now() + more) {}

 private:
  static std::uint64_t Mapped_Now() {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  }
};

}  // namespace sylvomex
