// SPDX-License-Identifier: MIT
// The anaglyph viewer: its window, its pair and its measured points.
#pragma once

#include "state/workspace.h"

namespace sylvomex {

void Open_Stereo_window(Workspace& w);

/// The picture takes the room of the window and is composed anew, unless no pair is open or the
/// pair starts, or the mark lies, at the origin of X.
void Form5_Resize(Workspace& w);

void Open_Pair(Workspace& w);        // replaces the pair that was open, its measured points too
void Save_point_File(Workspace& w);  // the measured points
void Exit_stereo(Workspace& w);      // hides the window
void Clear_Anaglyph_Window(Workspace& w);
void Retrieve(Workspace& w);  // goes to the current solution of the main window
void Form5_About(Workspace& w);

}  // namespace sylvomex
