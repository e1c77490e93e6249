// SPDX-License-Identifier: MIT
// Says on standard error which event runs for longer than a minute: a command that hangs is found
// by it.
#pragma once

#include <chrono>
#include <string>

namespace sylvomex {

class SlowEventWatch {
 public:
  explicit SlowEventWatch(const std::string& step);
  ~SlowEventWatch();
  SlowEventWatch(const SlowEventWatch&) = delete;
  SlowEventWatch& operator=(const SlowEventWatch&) = delete;

  /// Since it began.
  [[nodiscard]] double Seconds() const;

 private:
  std::chrono::steady_clock::time_point begun_;
};

}  // namespace sylvomex
