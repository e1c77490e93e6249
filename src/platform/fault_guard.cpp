// SPDX-License-Identifier: MIT
#include "platform/fault_guard.h"

#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <mutex>

namespace sylvomex {

// The handler walks the list of ranges without a lock, so ranges are reused and never deleted. The
// sequence is odd while a range changes. The range of a fault cannot change meanwhile: its reader
// stands still.
struct FaultGuard::Range {
  std::atomic<std::uint32_t> sequence{0};
  std::atomic<std::uintptr_t> start{0};
  std::atomic<std::uintptr_t> end{0};
  std::atomic<bool> faulted{false};
  bool in_use = false;  // under the mutex of the list
  Range* next = nullptr;
};

namespace {

using Range = FaultGuard::Range;

std::atomic<Range*> first_range{nullptr};
struct sigaction former_handling = {};

struct Extent {
  std::uintptr_t start = 0;
  std::uintptr_t end = 0;
};

void Set_Extent(Range& range, Extent extent) {
  ++range.sequence;
  range.start = extent.start;
  range.end = extent.end;
  ++range.sequence;
}

/// Nothing in it when the range is changing.
Extent Extent_Of(const Range& range) {
  const std::uint32_t sequence = range.sequence;
  const Extent extent{range.start, range.end};
  const bool changing = sequence % 2 != 0 || range.sequence != sequence;
  return changing ? Extent{} : extent;
}

// All of it, not the page alone: the result of the reader is lost anyway, and thousands of pages
// would cost a fault each. The system call itself, because mmap may be another function under a
// sanitizer, and a signal handler can call few of those.
bool Put_Zeros(const Extent& extent) {
  const long placed = syscall(SYS_mmap, extent.start, extent.end - extent.start, PROT_READ,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED | MAP_NORESERVE, -1, 0L);
  return placed == static_cast<long>(extent.start);
}

bool Replace_Range_Of(std::uintptr_t address) {
  for (Range* range = first_range.load(std::memory_order_acquire); range != nullptr;
       range = range->next) {
    const Extent extent = Extent_Of(*range);
    if (address < extent.start || address >= extent.end) continue;
    if (!Put_Zeros(extent)) return false;
    range->faulted.store(true, std::memory_order_release);
    return true;
  }
  return false;
}

void Pass_On(int signal, siginfo_t* info, void* context) {
  if ((former_handling.sa_flags & SA_SIGINFO) != 0) {
    former_handling.sa_sigaction(signal, info, context);
  } else if (former_handling.sa_handler != SIG_DFL && former_handling.sa_handler != SIG_IGN) {
    former_handling.sa_handler(signal);
  } else {
    std::signal(signal, SIG_DFL);
    raise(signal);  // takes effect when this handler returns
  }
}

void Handle_Fault(int signal, siginfo_t* info, void* context) {
  const int error = errno;
  const bool is_fault = info->si_code > 0;  // not sent by a process
  const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
  if (!is_fault || !Replace_Range_Of(address)) Pass_On(signal, info, context);
  errno = error;
}

bool Install_Handler() {
  struct sigaction handling = {};
  handling.sa_sigaction = Handle_Fault;
  handling.sa_flags = SA_SIGINFO | SA_ONSTACK;
  sigemptyset(&handling.sa_mask);
  return sigaction(SIGBUS, &handling, &former_handling) == 0;
}

std::mutex& List_Mutex() {
  static std::mutex mutex;
  return mutex;
}

Range& New_Range() {
  auto* const range = new Range;
  range->next = first_range.load(std::memory_order_relaxed);
  first_range.store(range, std::memory_order_release);
  return *range;
}

Range& Free_Range() {
  for (Range* range = first_range.load(std::memory_order_relaxed); range != nullptr;
       range = range->next) {
    if (!range->in_use) return *range;
  }
  return New_Range();
}

Range& Take_Range(Extent extent) {
  static const bool installed = Install_Handler();
  static_cast<void>(installed);
  const std::lock_guard lock(List_Mutex());
  Range& range = Free_Range();
  range.in_use = true;
  range.faulted.store(false, std::memory_order_relaxed);
  Set_Extent(range, extent);
  return range;
}

Extent Pages_Of(const void* start, std::size_t size) {
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto first = reinterpret_cast<std::uintptr_t>(start);
  return {first, first + (size + page - 1) / page * page};
}

}  // namespace

FaultGuard::FaultGuard(const void* start, std::size_t size)
    : range_(Take_Range(Pages_Of(start, size))) {}

FaultGuard::~FaultGuard() {
  const std::lock_guard lock(List_Mutex());
  Set_Extent(range_, {});
  range_.in_use = false;
}

bool FaultGuard::Faulted() const { return range_.faulted.load(std::memory_order_acquire); }

}  // namespace sylvomex
