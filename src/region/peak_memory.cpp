// SPDX-License-Identifier: MIT
#include "region/peak_memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace sylvomex {
namespace {

/// A line of the process's status, in bytes; 0 where there is none.
std::uint64_t Status_Bytes(const std::string& title) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != title) continue;
    std::uint64_t kilobytes = 0;
    status >> kilobytes;
    return kilobytes * 1024;
  }
  return 0;
}

}  // namespace

void Keep_Freed_Memory() {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, -1);
}

void Begin_Task_Memory(std::uint64_t bound) {
  if (Status_Bytes("VmRSS:") > bound / 4 * 3) malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
}

std::uint64_t Peak_Memory() { return Status_Bytes("VmHWM:"); }

}  // namespace sylvomex
