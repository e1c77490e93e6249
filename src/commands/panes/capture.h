// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// The picture of the second pane to the clipboard. RunTimeError(BadContent) while that pane holds
/// none.
void Capture(Workspace& w);

}  // namespace sylvomex
