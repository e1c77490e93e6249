// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop.h"

namespace sylvomex {

/// Gives the boxes, check boxes and panes of every window a name for screen readers: what they
/// hold, the label beside them, or their own name. Labels and buttons are read by their captions.
void Name_Controls(Desktop& desktop);

}  // namespace sylvomex
