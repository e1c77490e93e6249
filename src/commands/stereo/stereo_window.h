// SPDX-License-Identifier: MIT
// The anaglyph viewer: its window, its pair and its measured points.
#pragma once

namespace sylvomex {

struct Workspace;

void Open_Stereo_window(Workspace& w);

/// Fits the picture to the window and recentres it. Without an open pair, for a pair whose start X
/// is not above 1 and for a mark with X below 1 the picture keeps its content.
void Form5_Resize(Workspace& w);

void Open_Pair(Workspace& w);        // replaces the pair that was open, its measured points too
void Save_point_File(Workspace& w);  // the measured points
void Exit_stereo(Workspace& w);      // hides the window
void Clear_Anaglyph_Window(Workspace& w);
void Retrieve(Workspace& w);  // goes to the current solution of the main window
void Form5_About(Workspace& w);

}  // namespace sylvomex
