// SPDX-License-Identifier: MIT
// What a pane shows: its photograph, or the correlation image that lies over a patch of it.
#pragma once

#include "imageblock/pane_renderer.h"
#include "imageblock/pane_view.h"
#include "imageblock/view_moves.h"

namespace sylvomex {

struct Workspace;

[[nodiscard]] bool Shows_Correlation(const Workspace& w, int image);

PaneView& Shown_View(Workspace& w, int image);

/// The raster shown, and the pane.
ViewFrame Shown_Frame(const Workspace& w, int image);

/// True when the pane shows an image that can be rendered.
bool Shows_Image(Workspace& w, int image);

/// Renders a part of the raster shown, a photograph with the chosen gamma. RunTimeError when its
/// file cannot be read.
PaneBitmap Render_Shown(Workspace& w, int image, const RenderRequest& request);

}  // namespace sylvomex
