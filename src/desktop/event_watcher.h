// SPDX-License-Identifier: MIT
#pragma once

#include "workspace/operator_event.h"

namespace sylvomex {

/// Sees the outer events of the desktop: those that begin while no other is being handled.
class EventWatcher {
 public:
  virtual ~EventWatcher() = default;
  virtual void Event_Begins(const OperatorEvent&) {}

  /// The windows have not been updated yet. Further events must not be sent from here.
  virtual void Event_Has_Ended(const OperatorEvent&) {}
};

}  // namespace sylvomex
