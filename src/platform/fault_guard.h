// SPDX-License-Identifier: MIT
// Memory that is mapped from a file can be lost under its readers: the file shrinks, or its disk
// fails. The processor then stops the reading thread with SIGBUS, wherever it stands. A guarded
// range is replaced by zeros instead, as a whole, and marked; whoever reads it looks at the mark
// before using what was read.
#pragma once

#include <cstddef>

namespace sylvomex {

class FaultGuard {
 public:
  /// Guards `size` mapped bytes from the start of a page on, until the end of the scope. Faults
  /// elsewhere go to the handler that was there before.
  FaultGuard(const void* start, std::size_t size);
  ~FaultGuard();
  FaultGuard(const FaultGuard&) = delete;
  FaultGuard& operator=(const FaultGuard&) = delete;

  /// True since a byte of the range could not be read. Any thread may ask.
  [[nodiscard]] bool Faulted() const;

  struct Range;

 private:
  Range& range_;
};

}  // namespace sylvomex
