// SPDX-License-Identifier: MIT
// What today's hands and eyes expect beside the described windows. A plain desktop and scripts do
// without it.
#pragma once

#include "desktop_aids/aided_panes.h"
#include "desktop_aids/magnifier.h"
#include "desktop_aids/pane_hands.h"

namespace sylvomex {

class Aids {
 public:
  /// After Desktop::Start. The desktop must outlive the aids.
  explicit Aids(Desktop& desktop);
  ~Aids();
  Aids(const Aids&) = delete;
  Aids& operator=(const Aids&) = delete;

  [[nodiscard]] Magnifier& Glass() { return *magnifier_; }

 private:
  void Refresh();

  AidedPanes panes_;
  PaneHands hands_;
  Magnifier* magnifier_;  // owned by the window
};

}  // namespace sylvomex
