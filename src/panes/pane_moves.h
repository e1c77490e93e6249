// SPDX-License-Identifier: MIT
// Moving the view of a pane by hand: wheel and drag. The pane is loaded anew as a centring loads
// it, but the boxes of the observation stay, and what was drawn moves with the photograph. Panes
// with correlation images move over their patch. A pane without an image is left alone. Failures
// are RunTimeErrors.
#pragma once

namespace sylvomex {

struct Workspace;

/// One pane, steps further in (positive) or out, about the pane position px, py.
void Zoom_Pane_About(Workspace& w, int image, double px, double py, int steps);

/// All panes: the one under the pointer about px, py, the others about the same object point on
/// the horizontal plane of the solution (without one, of the pan centre) where they show it, else
/// about their centre.
void Zoom_All_Panes_About(Workspace& w, int image, double px, double py, int steps);

/// One pane, its picture dragged by dx, dy pane pixels.
void Drag_Pane(Workspace& w, int image, double dx, double dy);

/// One pane is dragged, and the others follow by the same distance on that plane. A pane whose
/// camera does not see the plane stays.
void Drag_All_Panes(Workspace& w, int image, double dx, double dy);

}  // namespace sylvomex
