// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

struct Workspace;

/// Renders pane k again at a zoom, centred on the observation in its text boxes. Every failure is
/// shown in one message box.
void Set_Zoom(Workspace& w, int image, double zoom_x, double zoom_y);

/// Set_Zoom for every image with an observation; the others are reported by name and skipped.
void Zoom_All_Images(Workspace& w, double zoom);

}  // namespace sylvomex
