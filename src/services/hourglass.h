// SPDX-License-Identifier: MIT
#pragma once

#include "state/workspace.h"

namespace sylvomex {

/// Hourglass pointer while the guard lives. It services no events: the operator sees the pointer at
/// the next servicing.
///
/// The destructor restores the normal pointer, not the previous one: nested commands each end
/// without an hourglass.
class HourglassGuard {
 public:
  explicit HourglassGuard(Workspace& w) : HourglassGuard(w.Form1.MousePointer) {}

  /// Over one pane only; afterwards the pane shows the given pointer.
  explicit HourglassGuard(Picture& pane, PointerShape afterwards = PointerShape::Normal)
      : HourglassGuard(pane.MousePointer, afterwards) {}

  ~HourglassGuard() { pointer_ = afterwards_; }

  /// Shows it again after servicing events, during which another command may have ended it.
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
