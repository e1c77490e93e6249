// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Asks for a point id, appends the pointer position to the tie point file and shows the points of
/// that file on their images.
void Tie_Point_Click(Workspace& w, int pane, double px, double py);

}  // namespace sylvomex
