// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <fstream>
#include <limits>
#include <string>

namespace sylvomex {

/// The process's most resident memory so far, in bytes, of which Begin_Peak starts a new account.
inline std::uint64_t Peak_Memory() {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    if (word != "VmHWM:") continue;
    std::uint64_t kilobytes = 0;
    status >> kilobytes;
    return kilobytes * 1024;
  }
  return std::numeric_limits<std::uint64_t>::max();
}

inline void Begin_Peak() { std::ofstream("/proc/self/clear_refs") << "5"; }

/// The memory that an action takes at its peak beyond what was resident before it.
template <class Action>
std::uint64_t Peak_Of(Action&& action) {
  Begin_Peak();
  const std::uint64_t before = Peak_Memory();
  action();
  return Peak_Memory() - before;
}

}  // namespace sylvomex
