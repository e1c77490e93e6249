// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Renders pane k anew at a zoom, centred on the observation in its text boxes. Every failure
/// ends in one message box.
void Set_Zoom(Workspace& w, int image, double zoom_x, double zoom_y);

/// Set_Zoom for every image that has an observation; the others are named and skipped.
void Zoom_All_Images(Workspace& w, double zoom);

}  // namespace sylvomex
