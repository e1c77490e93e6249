// SPDX-License-Identifier: MIT
// Points and lines from text files drawn over the panes. An unreadable row ends the command with an
// error; what earlier rows drew stays.
#pragma once

namespace sylvomex {

struct Workspace;

void Plot_3D_line_segments(Workspace& w);
void Plot_Field_measured_tree_data(Workspace& w);
void Plot_Circular_Plot(Workspace& w);   // around the plot location
void Plot_Crown_polygons(Workspace& w);  // on the first pane
void Plot_Tie_Points(Workspace& w);

/// The ground polyline "c:\data\XY_polyline.txt" on every pane; does nothing without the file.
void Plot_XYZ_Polyline(Workspace& w);

}  // namespace sylvomex
