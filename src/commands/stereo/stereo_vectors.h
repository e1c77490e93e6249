// SPDX-License-Identifier: MIT
// Points, texts and lines of files, drawn into the stereo model.
#pragma once

namespace sylvomex {

struct Workspace;

void Plot_Id_XYZ_Point_Data(Workspace& w);     // id, X, Y, Z a row: a cross in each image
void Plot_Floating_Text(Workspace& w);         // X, Y, Z, text a row
void Plot_Stereo_Line_Segments(Workspace& w);  // X, Y, Z a row; 0, 0, 0 ends a line

}  // namespace sylvomex
