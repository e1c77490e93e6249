// SPDX-License-Identifier: MIT
#include "platform/disk_room.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

namespace sylvomex {
namespace {

/// False only where the disk tells its size.
bool May_Have_Room(int descriptor, std::uint64_t bytes) {
  struct statvfs disk = {};
  if (fstatvfs(descriptor, &disk) != 0 || disk.f_blocks == 0 || disk.f_frsize == 0) return true;
  return bytes / disk.f_frsize <= disk.f_bavail;
}

}  // namespace

int Reserve_Disk_Room(int descriptor, std::uint64_t bytes) {
  if (bytes == 0) return 0;
  if (bytes > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) return EFBIG;
  if (!May_Have_Room(descriptor, bytes)) return ENOSPC;
  int error = 0;
  do {
    error = posix_fallocate(descriptor, 0, static_cast<off_t>(bytes));
  } while (error == EINTR);
  return error;
}

}  // namespace sylvomex
