// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "state/workspace.h"

namespace sylvomex {

/// The text of the status line, Label10 of the main window. Nothing is serviced.
inline void Show_Status(Workspace& w, std::string text) {
  w.Form1.Label10.Caption = std::move(text);
}

}  // namespace sylvomex
