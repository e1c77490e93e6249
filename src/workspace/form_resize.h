// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Resizes and places the panes for the current client size and renders them again around the
/// solution or the start positions.
void Form_Resize(Workspace& w);

}  // namespace sylvomex
