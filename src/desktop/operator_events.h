// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <string>

#include "workspace/operator_event.h"

namespace sylvomex {

/// Receives the operator's input from a window.
class OperatorEvents {
 public:
  virtual ~OperatorEvents() = default;

  virtual void Dispatch(const OperatorEvent& event) = 0;

  /// Moves that arrive faster than they can be handled are merged: only the last one counts.
  virtual void Dispatch_Move(const OperatorEvent& event) = 0;

  /// The same for sizes. False when the window must keep the size of its record.
  virtual bool Dispatch_Resize(const OperatorEvent& event) = 0;

  /// The pointer shape of a .CUR file (a drive name).
  virtual const QCursor& Custom_Cursor(const std::string& file) = 0;
};

}  // namespace sylvomex
