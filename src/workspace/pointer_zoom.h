// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

void Zoom_In_Click(Workspace& w, int pane);  // centred on the pane's observation, not on the click
void Zoom_Out_Click(Workspace& w, int pane);
void Pan_Click(Workspace& w, int pane, double px, double py);  // overwrites the observation

}  // namespace sylvomex
