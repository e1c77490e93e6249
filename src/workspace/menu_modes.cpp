// SPDX-License-Identifier: MIT
#include "workspace/menu_modes.h"

#include "commands/overlays/vector_overlays.h"
#include "platform/number_text.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr Colour kBlack{0, 0, 0};

void Toggle(bool& mode) { mode = !mode; }

}  // namespace

void Toggle_Draw_Polygon(Workspace& w) { Toggle(w.Menu.Draw_Polygon); }

void Toggle_Draw_XYZ_Polygon(Workspace& w) {
  Toggle(w.Menu.Draw_XYZ_Polygon);
  if (w.Menu.Draw_XYZ_Polygon) Plot_XYZ_Polyline(w);
}

void Toggle_Measure_Surface(Workspace& w) { Toggle(w.Menu.Measure_Surface); }
void Toggle_Measure_Triplet(Workspace& w) { Toggle(w.Menu.Measure_Triplet); }
void Toggle_Measure_Tie_and_CP(Workspace& w) { Toggle(w.Menu.Measure_Tie_and_CP); }

void Toggle_Measure_tree_tops_By_Matching(Workspace& w) {
  Toggle(w.Menu.Measure_tree_tops_By_Matching);
  w.Form1.Check5.Value = w.Menu.Measure_tree_tops_By_Matching ? 1 : 0;
}

void Check5_Click(Workspace& w) {
  w.Menu.Measure_tree_tops_By_Matching = w.Form1.Check5.Value == 1;
}

void Check2_Click(Workspace& w, int index) {
  for (int i = 0; i <= 3; ++i) {
    if (i != index && w.Form1.Check2(i).Value == 1) w.Form1.Check2(i).Value = 0;
  }
}

void MeasureDistancesCheckBox_Click(Workspace& w) {
  Label& status = w.Form1.Label10;
  if (w.Form1.MeasureDistancesCheckBox.Value == 1) {
    w.screen->Beep(800, 50);
    status.Caption = "Distances in XY assuming Z = " + Format(w.Solution3D.Z, "#.00 m");
  } else {
    w.screen->Beep(800, 200);
    status.Caption = "You've returned in 3D-mode";
  }
  status.ForeColor = kBlack;
}

void MeasureDistancesCheckBox_MouseMove(Workspace& w) {
  w.Form1.Label3.ForeColor = kBlack;
  w.Form1.Label3.Caption = "Swap between 3D and 2D modes";
}

}  // namespace sylvomex
