// SPDX-License-Identifier: MIT
#include "platform/memory_room.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <limits>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
constexpr std::uint64_t kWorthAsking = 64 * kMegabyte;

/// What the limit on the address space leaves.
std::uint64_t Room_In_Limit() {
  rlimit limit{};
  if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return kUnknown;
  std::ifstream statm("/proc/self/statm");
  std::uint64_t pages = 0;
  if (!(statm >> pages)) return kUnknown;
  const std::uint64_t used = pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  return limit.rlim_cur > used ? limit.rlim_cur - used : 0;
}

}  // namespace

std::uint64_t Available_Bytes(std::string_view meminfo) {
  constexpr std::string_view kName = "MemAvailable:";
  const std::size_t line = meminfo.find(kName);
  if (line == std::string_view::npos) return kUnknown;
  meminfo.remove_prefix(line + kName.size());
  meminfo.remove_prefix(std::min(meminfo.find_first_not_of(' '), meminfo.size()));
  std::uint64_t kilobytes = 0;
  const auto parsed = std::from_chars(meminfo.data(), meminfo.data() + meminfo.size(), kilobytes);
  return parsed.ec == std::errc() && kilobytes <= kUnknown / 1024 ? kilobytes * 1024 : kUnknown;
}

std::uint64_t Memory_Left() {
  std::ifstream file("/proc/meminfo");
  const std::string meminfo{std::istreambuf_iterator<char>(file), {}};
  return std::min(Available_Bytes(meminfo), Room_In_Limit());
}

void Require_Memory(std::uint64_t bytes, const std::string& what) {
  if (bytes < kWorthAsking) return;
  const std::uint64_t left = Memory_Left();
  if (bytes <= left) return;
  throw RunTimeError(Failure::OutOfMemory, what + " takes " + std::to_string(bytes / kMegabyte) +
                                               " MB, " + std::to_string(left / kMegabyte) +
                                               " MB are left");
}

}  // namespace sylvomex
