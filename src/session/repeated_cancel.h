// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

#include "platform/work_meter.h"

namespace sylvomex {

/// Cancels the work of a thread where it was cancelled the first time: at a look after so many of
/// its steps, but not before it has asked for all that was answered then. Not every look is a step.
class RepeatedCancel : public WorkWatcher {
 public:
  /// has_answers: whether some are left of those that were given.
  RepeatedCancel(long steps, std::function<bool()> has_answers)
      : last_(Work_Steps() + steps), has_answers_(std::move(has_answers)) {}

  void Look(double) override {
    if (Work_Steps() >= last_ && !has_answers_()) throw Cancelled{};
  }

 private:
  long last_;
  std::function<bool()> has_answers_;
};

}  // namespace sylvomex
