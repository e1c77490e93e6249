// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <string>

#include "workspace/operator_event.h"

namespace sylvomex {

/// What a window hands on to its owner.
class OperatorEvents {
 public:
  virtual ~OperatorEvents() = default;

  virtual void Dispatch(const OperatorEvent& event) = 0;

  /// Of moves that come faster than they can be handled only the last counts.
  virtual void Dispatch_Move(const OperatorEvent& event) = 0;

  /// The same for sizes. False when the window is to keep the size of its record.
  virtual bool Dispatch_Resize(const OperatorEvent& event) = 0;

  /// The pointer shape of a .CUR file, a drive name.
  virtual const QCursor& Custom_Cursor(const std::string& file) = 0;
};

}  // namespace sylvomex
