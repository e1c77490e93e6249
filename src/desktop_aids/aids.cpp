// SPDX-License-Identifier: MIT
#include "desktop_aids/aids.h"

namespace sylvomex {

Aids::Aids(Desktop& desktop) : panes_(desktop), hands_(panes_), magnifier_(new Magnifier(panes_)) {
  desktop.Shown().When_Mirrored([this] { Refresh(); });
}

Aids::~Aids() {
  panes_.Owner().Shown().When_Mirrored({});
  delete magnifier_;
}

void Aids::Refresh() { magnifier_->Refresh(); }

}  // namespace sylvomex
