// SPDX-License-Identifier: MIT
#include "workspace/pointer_view.h"

#include "panes/pane_moves.h"
#include "state/workspace.h"
#include "workspace/operator_event.h"

namespace sylvomex {

void Picture1_Wheel(Workspace& w, int pane, int notches, int shift, double px, double py) {
  if (w.Crown.CrownClickOne) return;
  if (shift == kCtrl) return Zoom_All_Panes_About(w, pane, px, py, notches);
  Zoom_Pane_About(w, pane, px, py, notches);
}

void Picture1_Pan(Workspace& w, int pane, int shift, double dx, double dy) {
  if (w.Crown.CrownClickOne) return;
  if (shift == kShift) return Drag_All_Panes(w, pane, dx, dy);
  Drag_Pane(w, pane, dx, dy);
}

}  // namespace sylvomex
