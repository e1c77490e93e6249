// SPDX-License-Identifier: MIT
#include "commands/heightmodels/height_display.h"

#include "state/workspace.h"

#include "closedlib/counted_loop.h"
#include "heightmodels/raster_model.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr Colour kLineColour{225, 225, 225};
constexpr double kHeightStep = 0.1;  // metres

// From the ground to the solution, one segment per step, labelled with its height above ground.
void Draw_Height_Scale(Workspace& w, int image, double ground) {
  const Point3D& top = w.Solution3D;
  Picture& pane = w.Form1.Picture1(image);
  const int passes = Loop_Passes(ground + kHeightStep, top.Z, kHeightStep);
  PanePosition from = Pane_Of_Point(w, image, {top.X, top.Y, ground});
  for (int pass = 1; pass <= passes; ++pass) {
    const double above_ground = pass * kHeightStep;
    const PanePosition to = Pane_Of_Point(w, image, {top.X, top.Y, ground + above_ground});
    Draw_Line(pane, from.px, from.py, to.px, to.py, kLineColour);
    pane.CurrentX = to.px + 10;
    pane.CurrentY = to.py - 10;
    pane.font.size = 12;
    Print_Text(pane, Format(above_ground, "#.0"));
    from = to;
  }
}

void Draw_Height(Workspace& w, int image, const HeightMark& mark) {
  const Point3D& top = w.Solution3D;
  Picture& pane = w.Form1.Picture1(image);
  const PanePosition at_top = Pane_Of_Point(w, image, top);
  const PanePosition at_ground = Pane_Of_Point(w, image, {top.X, top.Y, mark.ground});
  Plot_Block(pane, at_top.px, at_top.py, mark.reach, mark.top_colour);
  Plot_Block(pane, at_ground.px, at_ground.py, mark.reach, kRed);
  Draw_Line(pane, at_top.px, at_top.py, at_ground.px, at_ground.py, kLineColour);
  Draw_Height_Scale(w, image, mark.ground);
}

}  // namespace

void Show_Height_Text(Workspace& w, const char* what, double height) {
  Label& status = w.Form1.Label10;
  status.FontSize = 10;
  status.FontBold = true;
  status.Caption =
      what + Format(height, "#.00 m") + " Difference: " + Format(w.Solution3D.Z - height, "#.00 m");
}

void Show_Height(Workspace& w, const HeightMark& mark) {
  if (Is_No_Data(mark.ground)) {
    w.Form1.Label10.Caption =
        No_Data_Text("the height model", w.Solution3D.X, w.Solution3D.Y, mark.ground);
    return;
  }
  Show_Height_Text(w, "Ground: ", mark.ground);
  for (int k = 0; k < w.ImageCount; ++k) Draw_Height(w, k, mark);
}

}  // namespace sylvomex
