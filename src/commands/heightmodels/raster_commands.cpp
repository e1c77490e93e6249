// SPDX-License-Identifier: MIT
#include "commands/heightmodels/raster_commands.h"

#include <string>

#include "commands/heightmodels/height_display.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "platform/work_meter.h"
#include "services/chosen_file.h"
#include "services/hourglass.h"
#include "services/status_line.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

FilePath Ask_Header(Workspace& w) {
  const auto file =
      Ask_File(w, {"Header file for a height model", "HDR files (*.hdr)|*.hdr", 1, ""});
  if (!file) throw RunTimeError(Failure::FileNotFound, "no header was chosen");
  w.LastHeightHeaderName = file->name;
  return *file;
}

void End_Reading(Workspace& w, const char* status) {
  Show_Status(w, status);
  w.screen->Service_Events();
}

void Report_Failed_Reading(Workspace& w, const RunTimeError& error, const char* status) {
  Show_With_Cause(w, "An error occurred, resuming", error);
  Show_Status(w, status);
}

// A warning only: lookups return whatever such cells hold.
void Tell_No_Data(Workspace& w, const RasterModel& model, std::int64_t cells) {
  if (cells == 0) return;
  w.screen->Message_Box(w.LastHeightHeaderName + ": " + std::to_string(cells) + " of " +
                        std::to_string(model.Cells.size()) +
                        " cells hold no data (-9999, -3.4e38 or no number)");
}

// The answer must be a number but is otherwise not used: no height changes.
void Ask_Offset(Workspace& w) {
  Parse_Double(
      w.screen->Input_Box("What value to add to each cell Z?", "Query", "0.00").value_or(""));
}

// A reading that is cancelled leaves no model.
std::int64_t Read_Cells_Named_In(Workspace& w, const FilePath& header, RasterModel& model) {
  try {
    return Named_In(w, header.name,
                    [&] { return Read_Cells(w.Drives.Locate(model.CellFile.Padded()), model); });
  } catch (const Cancelled&) {
    model = {};
    if (&model == &w.RasterDem) w.RasterDemLoaded = false;
    throw;
  }
}

std::int64_t Load_Dem(Workspace& w, const FilePath& header) {
  const HourglassGuard hourglass(w);
  w.screen->Service_Events();
  Read_Raster_Header(header, w.RasterDem);
  Dimension_Cells(w.RasterDem);
  Ask_Offset(w);
  return Read_Cells_Named_In(w, header, w.RasterDem);
}

std::int64_t Load_Chm(Workspace& w, const FilePath& header) {
  Show_Status(w, header.name);
  const HourglassGuard hourglass(w);
  w.screen->Service_Events();
  Read_Raster_Header(header, w.RasterChm);
  Dimension_Cells(w.RasterChm);
  return Read_Cells_Named_In(w, header, w.RasterChm);
}

}  // namespace

void Add_height_Model(Workspace& w) {
  std::int64_t without_data = 0;
  try {
    without_data = Load_Dem(w, Ask_Header(w));
  } catch (const RunTimeError& error) {
    Report_Failed_Reading(w, error, " DEM read unsuccesfully");
    return;
  }
  w.RasterDemLoaded = true;
  End_Reading(w, " DEM read succesfully");
  Tell_No_Data(w, w.RasterDem, without_data);
}

void Add_Raster_CHM(Workspace& w) {
  std::int64_t without_data = 0;
  try {
    without_data = Load_Chm(w, Ask_Header(w));
  } catch (const RunTimeError& error) {
    Report_Failed_Reading(w, error, " RASTER CHM read unsuccesfully");
    return;
  }
  End_Reading(w, " Raster CHM read succesfully");
  Tell_No_Data(w, w.RasterChm, without_data);
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
