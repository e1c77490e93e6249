// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

namespace sylvomex {

/// Sets a limit of the process for a scope.
class ResourceLimit {
 public:
  ResourceLimit(__rlimit_resource_t resource, rlim_t most) : resource_(resource) {
    getrlimit(resource_, &old_);
    const rlimit limit{most, old_.rlim_max};
    setrlimit(resource_, &limit);
  }
  ~ResourceLimit() { setrlimit(resource_, &old_); }
  ResourceLimit(const ResourceLimit&) = delete;
  ResourceLimit& operator=(const ResourceLimit&) = delete;

 private:
  __rlimit_resource_t resource_;
  rlimit old_{};
};

}  // namespace sylvomex
