// SPDX-License-Identifier: MIT
// The measuring modes of the menu State and the check boxes that mirror them.
#pragma once

namespace sylvomex {

struct Workspace;

void Toggle_Draw_Polygon(Workspace& w);
void Toggle_Draw_XYZ_Polygon(Workspace& w);  // draws the polyline when switched on
void Toggle_Measure_Surface(Workspace& w);
void Toggle_Measure_Triplet(Workspace& w);
void Toggle_Measure_tree_tops_By_Matching(Workspace& w);  // and Check5
void Toggle_Measure_Tie_and_CP(Workspace& w);

void Check5_Click(Workspace& w);             // sets the menu item accordingly
void Check2_Click(Workspace& w, int index);  // unticks the other species
void MeasureDistancesCheckBox_Click(Workspace& w);
void MeasureDistancesCheckBox_MouseMove(Workspace& w);

}  // namespace sylvomex
