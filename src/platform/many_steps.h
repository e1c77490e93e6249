// SPDX-License-Identifier: MIT
// A loop of many short steps, such as one for each triangle or echo.
#pragma once

#include <cstdint>

#include "platform/work_meter.h"

namespace sylvomex {

/// A WorkMeter with a look after every kStepsOfALook steps only. Its looks are not counted among
/// the steps of the work, so that it may stand in tasks that run on any thread.
class ManySteps {
 public:
  static constexpr std::uint64_t kStepsOfALook = std::uint64_t{1} << 14;  // a power of two

  /// steps: their number; need not be exact.
  explicit ManySteps(double steps) : meter_(steps / static_cast<double>(kStepsOfALook)) {}

  void Step() {
    if ((++steps_ & (kStepsOfALook - 1)) == 0) meter_.Task();
  }

 private:
  WorkMeter meter_;
  std::uint64_t steps_ = 0;
};

}  // namespace sylvomex
