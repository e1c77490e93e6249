// SPDX-License-Identifier: MIT
#include "commands/panes/capture.h"

#include "state/workspace.h"

namespace sylvomex {

void Capture(Workspace& w) {
  w.screen->Clear_Clipboard();
  const Picture& second = w.Form1.Picture1(1);
  if (second.bitmap == nullptr) {
    throw RunTimeError(Failure::BadContent, "the second pane holds no picture to capture");
  }
  w.screen->Copy_To_Clipboard(*second.bitmap);
}

}  // namespace sylvomex
