// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// One end of a crown width, measured on the horizontal plane through the solution. Every
/// second click completes the pair in the distance entry of its pane.
void Crown_Width_Click(Workspace& w, int pane, double px, double py);

}  // namespace sylvomex
