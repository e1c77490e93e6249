// SPDX-License-Identifier: MIT
// The commands that centre all panes on one point. Each shows its own message when it fails.
#pragma once

namespace sylvomex {

struct Workspace;

void Center_to_xyz_click(Workspace& w);         // on Solution3D; discards correlation images
void Center_to_pan_center_click(Workspace& w);  // on PanCenter
void Center_To_Sub_c_click(Workspace& w);       // on each header's start position
void Center_To_Q(Workspace& w);                 // on a queried raw-file column and row

/// After a window resize or a change of the image set: centres on the solution if there is one,
/// else on the start positions.
void Center_On_Solution_Or_Start(Workspace& w);

}  // namespace sylvomex
