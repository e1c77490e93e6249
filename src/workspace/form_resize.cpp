// SPDX-License-Identifier: MIT
#include "workspace/form_resize.h"

#include "commands/panes/centring.h"
#include "panes/pane_layout.h"
#include "state/workspace.h"

namespace sylvomex {

void Form_Resize(Workspace& w) {
  Compute_Pane_Size(w);
  Lay_Out_Panes(w);
  Center_On_Solution_Or_Start(w);
}

}  // namespace sylvomex
