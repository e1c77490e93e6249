// SPDX-License-Identifier: MIT
// Limits what the process can still take of memory, for the scope of a test.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <fstream>

namespace sylvomex {

class AddressSpaceLimit {
 public:
  /// more: bytes beyond what the process has mapped now.
  explicit AddressSpaceLimit(std::uint64_t more) {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    getrlimit(RLIMIT_AS, &old_);
    const rlimit limit{pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)) + more,
                       old_.rlim_max};
    setrlimit(RLIMIT_AS, &limit);
  }
  ~AddressSpaceLimit() { setrlimit(RLIMIT_AS, &old_); }
  AddressSpaceLimit(const AddressSpaceLimit&) = delete;
  AddressSpaceLimit& operator=(const AddressSpaceLimit&) = delete;

 private:
  rlimit old_{};
};

}  // namespace sylvomex
