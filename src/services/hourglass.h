// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// The hourglass pointer for the life of the guard, however that ends. Nothing is serviced:
/// the operator sees the pointer at the next servicing.
///
/// The guard leaves the normal pointer behind and not the one that it found: commands that run
/// inside each other each end without an hourglass.
class HourglassGuard {
 public:
  explicit HourglassGuard(Workspace& w) : HourglassGuard(w.Form1.MousePointer) {}

  /// Over one pane; afterwards it shows the given pointer.
  explicit HourglassGuard(Picture& pane, PointerShape afterwards = PointerShape::Normal)
      : HourglassGuard(pane.MousePointer, afterwards) {}

  ~HourglassGuard() { pointer_ = afterwards_; }

  /// Shows it again after a servicing, in which another command may have ended it.
  void Show() { pointer_ = PointerShape::Hourglass; }

  HourglassGuard(const HourglassGuard&) = delete;
  HourglassGuard& operator=(const HourglassGuard&) = delete;

 private:
  explicit HourglassGuard(PointerShape& pointer, PointerShape afterwards = PointerShape::Normal)
      : pointer_(pointer), afterwards_(afterwards) {
    Show();
  }

  PointerShape& pointer_;
  PointerShape afterwards_;
};

}  // namespace sylvomex
