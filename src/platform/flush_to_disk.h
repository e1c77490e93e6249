// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <cerrno>

namespace sylvomex {

/// Waits until what was written to an open file is on the disk. Returns 0, or the error of the
/// operating system. Some network drives cannot flush; that is none.
inline int Flush_To_Disk(int descriptor) {
  int failed = 0;
  do {
    failed = fdatasync(descriptor);
  } while (failed != 0 && errno == EINTR);
  return failed == 0 || errno == EINVAL || errno == ENOTSUP ? 0 : errno;
}

}  // namespace sylvomex
