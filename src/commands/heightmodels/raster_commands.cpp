// SPDX-License-Identifier: MIT
#include "commands/heightmodels/raster_commands.h"

#include <string>

#include "commands/heightmodels/height_display.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "services/hourglass.h"
#include "services/status_line.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

FilePath Ask_Header(Workspace& w) {
  FileQuestion question;
  question.title = "Header file for a height model";
  question.filter = "HDR files (*.hdr)|*.hdr";
  const auto name = w.screen->File_Dialog(question);
  if (!name) throw RunTimeError(Failure::FileNotFound, "no header was chosen");
  w.LastHeightHeaderName = *name;
  return w.Drives.Locate(*name);
}

void End_Reading(Workspace& w, const char* status) {
  Show_Status(w, status);
  w.screen->Service_Events();
}

void Report_Failed_Reading(Workspace& w, const char* status) {
  w.screen->Message_Box("An error occurred, resuming");
  Show_Status(w, status);
}

// The answer must be a number and changes no height.
void Ask_Offset(Workspace& w) {
  Parse_Double(
      w.screen->Input_Box("What value to add to each cell Z?", "Query", "0.00").value_or(""));
}

void Load_Dem(Workspace& w, const FilePath& header) {
  const HourglassGuard hourglass(w);
  w.screen->Service_Events();
  Read_Raster_Header(header, w.RasterDem);
  Dimension_Cells(w.RasterDem);
  Ask_Offset(w);
  Read_Cells(w.Drives.Locate(w.RasterDem.CellFile.Padded()), w.RasterDem);
}

void Load_Chm(Workspace& w, const FilePath& header) {
  Show_Status(w, header.name);
  const HourglassGuard hourglass(w);
  w.screen->Service_Events();
  Read_Raster_Header(header, w.RasterChm);
  Dimension_Cells(w.RasterChm);
  Read_Cells(w.Drives.Locate(w.RasterChm.CellFile.Padded()), w.RasterChm);
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
