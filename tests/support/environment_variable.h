// SPDX-License-Identifier: MIT
// An environment variable for a scope, with its old value afterwards.
#pragma once

#include <stdlib.h>
#include <time.h>

#include <optional>
#include <string>

namespace sylvomex {

class EnvironmentVariable {
 public:
  /// std::nullopt: the variable is not set in the scope.
  EnvironmentVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* old = getenv(name)) old_ = old;
    Set(value);
  }
  ~EnvironmentVariable() { Set(old_); }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

 private:
  void Set(const std::optional<std::string>& value) const {
    if (value) {
      setenv(name_, value->c_str(), 1);
    } else {
      unsetenv(name_);
    }
    tzset();  // TZ is read once otherwise
  }

  const char* name_;
  std::optional<std::string> old_;
};

}  // namespace sylvomex
