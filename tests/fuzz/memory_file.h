// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "platform/drive_map.h"

namespace sylvomex {

/// A file in memory, removed at the end of the scope.
class MemoryFile {
 public:
  explicit MemoryFile(std::span<const std::uint8_t> content)
      : descriptor_(memfd_create("fuzz", MFD_CLOEXEC)) {
    const ssize_t written = write(descriptor_, content.data(), content.size());
    if (written != static_cast<ssize_t>(content.size())) std::abort();
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  [[nodiscard]] FilePath File() const {
    return {"c:\\data\\fuzz", "/proc/self/fd/" + std::to_string(descriptor_)};
  }

 private:
  int descriptor_;
};

}  // namespace sylvomex
