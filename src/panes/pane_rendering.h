// SPDX-License-Identifier: MIT
// From a centre in the raw file to the picture of a pane: view window, render, scratch bitmap
// file, load. Failures are RunTimeErrors.
#pragma once

#include "imageblock/view_window.h"

namespace sylvomex {

struct Workspace;

/// The view window of an image around a raw-file centre, width by height raw pixels. On
/// success ViewCol and ViewRow of its pane follow; a window larger than the raw file shows
/// "Pan window is too large" and leaves them.
ViewWindow Fit_View_Window(Workspace& w, int image, int centre_col, int centre_row, int width,
                           int height);

/// Renders by ColorFlag with the pane's zoom into the image's scratch bitmap; another flag than
/// 0 or 1 renders nothing, nor does an image without pixels.
void Render_Scratch_Bitmap(Workspace& w, int image, const ViewWindow& window);

/// Loads the image's scratch bitmap into its pane, which drops the marks drawn there; the pane of
/// an image without pixels gets no picture.
void Load_Scratch_Bitmap(Workspace& w, int image);

/// Round(pane size / zoom), checked to 16 bits: the size of a view in raw pixels.
int View_Extent(int pane_size, double zoom);

}  // namespace sylvomex
