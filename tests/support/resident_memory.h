// SPDX-License-Identifier: MIT
#pragma once

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <fstream>

namespace sylvomex {

/// Bytes of the process that lie in memory now.
inline std::uint64_t Resident_Memory() {
  std::uint64_t mapped = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> mapped >> resident;
  return resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

/// The most memory that an action had in use when it looked, beyond what was there at the start.
class MemoryWatch {
 public:
  /// What was freed before goes back to the system first: it would hide what is taken anew.
  MemoryWatch() {
    malloc_trim(0);
    start_ = most_ = Resident_Memory();
  }

  void Look() { most_ = std::max(most_, Resident_Memory()); }
  [[nodiscard]] std::uint64_t Most() const { return most_ - start_; }

 private:
  std::uint64_t start_ = 0;
  std::uint64_t most_ = 0;
};

}  // namespace sylvomex
