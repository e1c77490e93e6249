// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Takes the pointer position as the film observation of the pane's image.
void Measuring_Click(Workspace& w, int pane, double px, double py);

}  // namespace sylvomex
