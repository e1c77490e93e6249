// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop.h"

namespace sylvomex {

/// Gives the boxes and panes of every window a name for screen readers: what they hold or the label
/// beside them. Labels, ticks and buttons are read by their captions.
void Name_Controls(Desktop& desktop);

/// The words of a step of undo, with what the operator sees in place of the names that scripts have
/// for a box or a window.
std::string Seen_Words(const Windows& shown, const std::string& words);

}  // namespace sylvomex
