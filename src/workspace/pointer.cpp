// SPDX-License-Identifier: MIT
#include "workspace/pointer.h"

#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "state/workspace.h"
#include "workspace/operator_event.h"
#include "workspace/pointer_crown_width.h"
#include "workspace/pointer_measuring.h"
#include "workspace/pointer_polygon.h"
#include "workspace/pointer_tie_point.h"
#include "workspace/pointer_zoom.h"

namespace sylvomex {
namespace {

// While a polygon mode is on, only its own clicks have an effect.
void Polygon_Click(Workspace& w, int pane, int button, int shift, double px, double py) {
  if (button == kRightButton && shift == 0) {
    Start_Polygon(w, pane, px, py);
  } else if (button == kRightButton && shift == kShift) {
    Close_Polygon(w, pane);
  } else if (button == kLeftButton && w.PolygonActive) {
    Add_Polygon_Vertex(w, pane, px, py);
  }
}

void Crown_Mode_Click(Workspace& w, int pane, int shift, double px, double py) {
  if (shift != 0) {
    w.screen->Message_Box("Cannot Zoom or Pan in the Measure Crown Widths Mode");
  } else {
    Crown_Width_Click(w, pane, px, py);
  }
}

}  // namespace

void Form_MouseMove(Workspace& w) {
  w.Form1.Label3.Caption = "Press \"U\" for Up, \"D\" down, \"E\" East etc.";
}

void Picture1_MouseMove(Workspace& w, int pane, double px, double py) {
  const PaneView& view = w.PaneViews(pane);
  if (view.ZoomX == 0) return;
  w.Form1.Picture1(pane).MousePointer = PointerShape::Custom;
  const PixelPosition at = Pixel_Of_Pane(w, pane, px, py);
  w.Form1.Label1(pane).Caption = Format(at.col, "#.0") + " " + Format(at.row, "#.0") + " " +
                                 Format(px, "#") + " " + Format(py, "#") + " " +
                                 Format(view.ViewCol, "#") + " " + Format(view.ViewRow, "#");
  w.Form1.Label3.Caption = "To Zoom in: Shift+Click, Out: Ctrl+Click, Pan: Alt+Click";
  w.screen->Service_Events();
}

void Picture1_MouseDown(Workspace& w, int pane, int button, int shift, double px, double py) {
  w.Form1.Picture1(pane).DrawWidth = 1;
  if (w.ImageKinds(pane) == 2 && shift != 0) return;
  if (w.Menu.Measure_Tie_and_CP && shift == 0) return Tie_Point_Click(w, pane, px, py);
  if (w.Menu.Draw_Polygon) return Polygon_Click(w, pane, button, shift, px, py);
  if (button == kRightButton && shift == 0) return;
  if (w.Form1.MeasureDistancesCheckBox.Value == 1) {
    return Crown_Mode_Click(w, pane, shift, px, py);
  }
  if (shift == kShift) return Zoom_In_Click(w, pane);
  if (shift == kCtrl) return Zoom_Out_Click(w, pane);
  if (shift == kAlt) return Pan_Click(w, pane, px, py);
  Measuring_Click(w, pane, px, py);
}

}  // namespace sylvomex
