// SPDX-License-Identifier: MIT
// From a centre in the raw file to the picture of a pane: view window, rendering, scratch bitmap
// file, loading. Failures are RunTimeErrors.
#pragma once

#include "imageblock/pane_renderer.h"
#include "imageblock/view_window.h"
#include "platform/drive_map.h"

namespace sylvomex {

struct Workspace;

/// The view window of an image around a raw-file centre, width x height raw pixels. On
/// success ViewCol and ViewRow of its pane are updated; a window larger than the raw file shows
/// "Pan window is too large" and leaves them unchanged.
ViewWindow Fit_View_Window(Workspace& w, int image, int centre_col, int centre_row, int width,
                           int height);

/// Renders the raw file of an image with pixels and a ColorFlag of 0 or 1 with the chosen gamma.
PaneBitmap Render_Photograph(Workspace& w, int image, RenderRequest request);

/// The file of an image's scratch bitmap, "c:\data\pic<k>.bmp".
FilePath Scratch_Bitmap(Workspace& w, int image);

/// Renders according to ColorFlag, at the pane's zoom, into the image's scratch bitmap; renders
/// nothing for a flag other than 0 or 1 or for an image without pixels.
void Render_Scratch_Bitmap(Workspace& w, int image, const ViewWindow& window);

/// Loads the image's scratch bitmap into its pane, which removes the marks drawn there; without
/// pixels the pane gets no picture.
void Load_Scratch_Bitmap(Workspace& w, int image);

/// Round(pane size / zoom), limited to 16 bits: the size of a view in raw pixels.
int View_Extent(int pane_size, double zoom);

}  // namespace sylvomex
