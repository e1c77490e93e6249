// SPDX-License-Identifier: MIT
#include "workspace/exit.h"

#include "state/workspace.h"

namespace sylvomex {

void Exit(Workspace& w) {
  const Answer answer =
      w.screen->Message_Box("Do you wish to exit?", Buttons::OkCancel, "3D-measurements");
  if (answer == Answer::Ok) w.screen->End_Session();
}

}  // namespace sylvomex
