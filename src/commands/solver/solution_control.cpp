// SPDX-License-Identifier: MIT
#include "commands/solver/solution_control.h"

#include <optional>
#include <string>

#include "commands/panes/centring.h"
#include "platform/number_text.h"
#include "services/chosen_file.h"
#include "services/solution.h"
#include "solver/single_point.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

// SolutionValid is left unchanged.
void Fall_Back(Workspace& w, const RunTimeError& error) {
  Show_With_Cause(w, "Cannot convert Input into a 3D-solution!", error);
  w.Solution3D = w.DefaultPanCenter;
  Show_Solution(w, kPlainNumbers);
}

double Ask_Value(Workspace& w, const char* prompt, const char* preset) {
  const std::string answer =
      w.screen->Input_Box(prompt, "Set 3D solution to a given value", preset).value_or("");
  return About(w, prompt, [&] { return Parse_Double(answer); });
}

std::optional<FilePath> Ask_Point_File(Workspace& w) {
  return Ask_File(w, {"File with X (comma) Y (comma) Z ", "TXT files (*.txt)|*.txt", 1, ""});
}

}  // namespace

void Reset_Point_Solution(Workspace& w) {
  w.SolutionValid = false;
  w.Solution3D.X = w.ImageBlock(0).X0;
  w.Solution3D.Y = w.ImageBlock(0).Y0;
  w.Solution3D.Z = Get_Raster_Elevation(w, w.Solution3D.X, w.Solution3D.Y);
  Show_Solution(w, kHundredths);
}

void Set_3D_solution(Workspace& w) {
  try {
    w.Solution3D.X = Ask_Value(w, "X-value to be assigned", "2515000.00");
    w.Solution3D.Y = Ask_Value(w, "Y-value to be assigned", "6860000.00");
    w.Solution3D.Z = Ask_Value(w, "Z-value to be assigned", "180.00");
  } catch (const RunTimeError& error) {
    Fall_Back(w, error);
    return;
  }
  Accept_Solution(w);
}

void Set_3D_Sol_File(Workspace& w) {
  try {
    const NumberedPoint value = Read_Numbered_Point(Ask_Point_File(w).value_or(FilePath()));
    w.XYDistanceEntries(0).TreeNumber = value.number;
    w.Observation.FreeInteger = value.number;
    w.Solution3D = value.point;
  } catch (const RunTimeError& error) {
    Fall_Back(w, error);
    return;
  }
  Accept_Solution(w);
  w.screen->Service_Events();
  Center_to_xyz_click(w);
}

void Set_3D_solution_To_Stereo_Sol(Workspace& w) {
  w.Solution3D = w.Stereo.StereoSolution;
  Accept_Solution(w);
}

void Set_3D_solution_to_a_new_plot_location(Workspace& w) {
  const auto file = Ask_Point_File(w);
  if (!file) return;
  w.Plot = Read_Plot_Location(*file);
  w.Plot.GroundZ = Get_Raster_Elevation(w, w.Plot.X, w.Plot.Y);
  w.Solution3D = {w.Plot.X, w.Plot.Y, w.Plot.GroundZ + w.Plot.HeightAboveGround};
  Show_Solution(w, kPlainNumbers);
  Center_to_xyz_click(w);
}

}  // namespace sylvomex
