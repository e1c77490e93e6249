// SPDX-License-Identifier: MIT
#include "commands/panes/clearing.h"

#include "state/workspace.h"

namespace sylvomex {

void Clear_ima(Workspace& w) {
  for (int k = 0; k < w.ImageCount; ++k) Erase_Marks(w.Form1.Picture1(k));
}

void Clear_all(Workspace& w) {
  for (int k = 0; k < w.ImageCount; ++k) {
    w.Form1.Check1(k).Value = 0;
    w.Form1.Text1(2 * k).Text.clear();
    w.Form1.Text1(2 * k + 1).Text.clear();
    w.Form1.Text12(k).Text.clear();
    Erase_Marks(w.Form1.Picture1(k));
  }
  w.CurrentImage = -1;
}

}  // namespace sylvomex
