// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Copies the picture of the second pane to the clipboard. RunTimeError(BadContent) when that pane
/// has none.
void Capture(Workspace& w);

}  // namespace sylvomex
