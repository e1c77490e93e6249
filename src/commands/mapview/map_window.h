// SPDX-License-Identifier: MIT
// The map window: a georeferenced raster map beside the images, to find one's way. It knows
// nothing of the image block.
#pragma once

namespace sylvomex {

struct Workspace;

/// Shows Form8; a window that was closed begins at 100 % without a picture.
void Open_Map_Window(Workspace& w);

/// Closes Form8. The map stays open in the block.
void Exit_Map_Window(Workspace& w);

/// Sizes the map pane by the window's client size. The picture stays as it is until the next click.
void Form8_Resize(Workspace& w);

/// Asks for a map header and shows the map's upper left corner at 100 %; the zoom text waits for
/// the next zooming click. A map that cannot be shown leaves the one before open, with its view.
void Open_a_Map(Workspace& w);

/// Zooms in (kLeftButton) or out (kRightButton) by 2 and centres the map on a pane position. A
/// view that cannot be shown leaves the one before.
void Form8_Picture1_MouseDown(Workspace& w, int button, double px, double py);

/// Shows the map pixel and the ground position under the pointer.
void Form8_Picture1_MouseMove(Workspace& w, double px, double py);

}  // namespace sylvomex
