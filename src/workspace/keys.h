// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Receives every key of the main window first, whichever control has the focus. Key codes as in
/// OperatorEvent.
void Form_KeyDown(Workspace& w, int key_code, int shift);

}  // namespace sylvomex
