// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "state/workspace.h"

namespace sylvomex {

/// Sets the text of the status line, Label10 of the main window. Services no events.
inline void Show_Status(Workspace& w, std::string text) {
  w.Form1.Label10.Caption = std::move(text);
}

}  // namespace sylvomex
