// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

#include "support/resource_limit.h"

namespace sylvomex {

/// Limits the size of written files for a scope, as a full disk would.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : limit_(RLIMIT_FSIZE, bytes) {}
  ~FileSizeLimit() { std::signal(SIGXFSZ, old_handler_); }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*old_handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
  ResourceLimit limit_;
};

}  // namespace sylvomex
