// SPDX-License-Identifier: MIT
#include "heightmodels/commands/raster_commands.h"

#include <string>

#include "closedlib/counted_loop.h"
#include "platform/number_text.h"
#include "workspace/panes/pane_drawing.h"
#include "workspace/state/camera_access.h"

namespace sylvomex {
namespace {

constexpr Colour kTopColour{100, 255, 0};
constexpr Colour kLineColour{225, 225, 225};
constexpr double kHeightStep = 0.1;  // metres

FilePath Ask_Header(Workspace& w) {
  FileQuestion question;
  question.title = "Header file for a height model";
  question.filter = "HDR files (*.hdr)|*.hdr";
  const auto name = w.screen->File_Dialog(question);
  if (!name) throw RunTimeError(Failure::FileNotFound, "no header was chosen");
  w.LastHeightHeaderName = *name;
  return w.Drives.Locate(*name);
}

void Begin_Reading(Workspace& w) {
  w.Form1.MousePointer = PointerShape::Hourglass;
  w.screen->Service_Events();
}

void End_Reading(Workspace& w, const char* status) {
  w.Form1.Label10.Caption = status;
  w.Form1.MousePointer = PointerShape::Normal;
  w.screen->Service_Events();
}

void Report_Failed_Reading(Workspace& w, const char* status) {
  w.screen->Message_Box("An error occurred, resuming");
  w.Form1.Label10.Caption = status;
  w.Form1.MousePointer = PointerShape::Normal;
}

// The answer must be a number and changes no height.
void Ask_Offset(Workspace& w) {
  Parse_Double(
      w.screen->Input_Box("What value to add to each cell Z?", "Query", "0.00").value_or(""));
}

void Load_Dem(Workspace& w, const FilePath& header) {
  Begin_Reading(w);
  Read_Raster_Header(header, w.RasterDem);
  Dimension_Cells(w.RasterDem);
  Ask_Offset(w);
  Read_Cells(w.Drives.Locate(w.RasterDem.CellFile.Padded()), w.RasterDem);
}

void Load_Chm(Workspace& w, const FilePath& header) {
  w.Form1.Label10.Caption = header.name;
  Begin_Reading(w);
  Read_Raster_Header(header, w.RasterChm);
  Dimension_Cells(w.RasterChm);
  Read_Cells(w.Drives.Locate(w.RasterChm.CellFile.Padded()), w.RasterChm);
}

// How a height under the solution is drawn.
struct HeightMark {
  double ground = 0;  // metres
  int reach = 2;      // of the two blocks, pane pixels
  Colour top_colour;  // of the block at the solution
};

// From the ground to the solution, a segment a step, each with its height above the ground.
void Draw_Height_Scale(Workspace& w, int image, double ground) {
  const Point3D& top = w.Solution3D;
  Picture& pane = w.Form1.Picture1(image);
  const int passes = Loop_Passes(ground + kHeightStep, top.Z, kHeightStep);
  PanePosition from = Pane_Of_Point(w, image, top.X, top.Y, ground);
  for (int pass = 1; pass <= passes; ++pass) {
    const double above_ground = pass * kHeightStep;
    const PanePosition to = Pane_Of_Point(w, image, top.X, top.Y, ground + above_ground);
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
  const PanePosition at_top = Pane_Of_Point(w, image, top.X, top.Y, top.Z);
  const PanePosition at_ground = Pane_Of_Point(w, image, top.X, top.Y, mark.ground);
  Plot_Block(pane, at_top.px, at_top.py, mark.reach, mark.top_colour);
  Plot_Block(pane, at_ground.px, at_ground.py, mark.reach, kRed);
  Draw_Line(pane, at_top.px, at_top.py, at_ground.px, at_ground.py, kLineColour);
  Draw_Height_Scale(w, image, mark.ground);
}

void Show_Height(Workspace& w, const HeightMark& mark) {
  Label& status = w.Form1.Label10;
  status.FontSize = 10;
  status.FontBold = true;
  status.Caption = "Ground: " + Format(mark.ground, "#.00 m") +
                   " Difference: " + Format(w.Solution3D.Z - mark.ground, "#.00 m");
  for (int k = 0; k < w.ImageCount; ++k) Draw_Height(w, k, mark);
}

}  // namespace

void Add_height_Model(Workspace& w) {
  try {
    Load_Dem(w, Ask_Header(w));
  } catch (const RunTimeError&) {
    Report_Failed_Reading(w, " DEM read unsuccesfully");
    return;
  }
  w.RasterDemLoaded = true;
  End_Reading(w, " DEM read succesfully");
}

void Add_Raster_CHM(Workspace& w) {
  try {
    Load_Chm(w, Ask_Header(w));
  } catch (const RunTimeError&) {
    Report_Failed_Reading(w, " RASTER CHM read unsuccesfully");
    return;
  }
  End_Reading(w, " Raster CHM read succesfully");
}

void Get_elevation(Workspace& w) {
  if (!w.SolutionValid) return;
  const double ground = Get_Raster_Elevation(w, w.Solution3D.X, w.Solution3D.Y);
  Show_Height(w, {ground, 2, kTopColour});
}

void Get_Raster_CHM_Elevation(Workspace& w) {
  if (!w.SolutionValid) return;
  const double height = Get_Raster_Chm_Elevation(w, w.Solution3D.X, w.Solution3D.Y);
  Show_Height(w, {height, 1, kRed});
}

}  // namespace sylvomex
