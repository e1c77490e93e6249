// SPDX-License-Identifier: MIT
#include "commands/heightmodels/tin_commands.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "commands/heightmodels/height_display.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "services/chosen_file.h"
#include "services/status_line.h"
#include "state/camera_access.h"
#include "state/cause.h"
#include "state/tin_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr double kCanopyLift = 0.3;  // metres

void Tell_Degenerate_Triangle(Workspace& w, const TinModel& model) {
  Show_Status(w, " TIN: triangle " + Plain_Text(model.TriangleCount + 1) +
                     " is degenerate, the reading stopped there; the " +
                     Plain_Text(model.TriangleCount) + " before it serve");
}

// The model is read into a temporary and replaces the one in the block only after its files have
// proved valid: the dialogs and message boxes let other commands run meanwhile. A dismissed
// dialog ends the command without any change.
void Load_Tin(Workspace& w, TinModel Workspace::*place, double lift) {
  TinModel model;
  const auto nodes = Ask_File(w, {"File with node x,y,z", "NOD files (*.nod)|*.nod", 1, ""});
  if (!nodes) return;
  Read_Tin_Nodes(*nodes, lift, model);
  const auto triangles = Ask_File(w, {"File with Triangle ids", "NOD files (*.tri)|*.tri", 1, ""});
  if (!triangles) return;
  const Report report = [&](std::string_view sentence) {
    Show_With_Cause(w, sentence,
                    triangles->name + ", triangle " + Plain_Text(model.TriangleCount + 1));
  };
  const bool complete = Read_Tin_Triangles(*triangles, model, report);
  Index_Tin(model, report);
  w.*place = std::move(model);
  if (!complete) return Tell_Degenerate_Triangle(w, w.*place);
  Show_Status(w, " TIN - DTM read succesfully");
  w.TinDemLoaded = true;
}

// The canopy around the solution as a square lattice of points in plan.
constexpr int kHalfSide = 10;  // steps
constexpr int kLines = 2 * kHalfSide + 1;
constexpr double kStep = 5;  // metres

struct CanopyPoint {
  Point3D at;
  bool is_drawn = false;
};
using CanopyLattice = std::array<std::array<CanopyPoint, kLines>, kLines>;  // by X, then by Y

CanopyLattice Canopy_Lattice(const Workspace& w) {
  CanopyLattice lattice;
  std::int32_t hint = 0;
  for (int i = 0; i < kLines; ++i) {
    for (int j = 0; j < kLines; ++j) {
      const double X = w.Solution3D.X + (i - kHalfSide) * kStep;
      const double Y = w.Solution3D.Y + (j - kHalfSide) * kStep;
      const double canopy = Get_Tin_Chm_Elevation(w, X, Y, hint);
      const bool is_drawn = canopy >= 0 && canopy > Get_Raster_Elevation(w, X, Y);
      lattice[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] = {{X, Y, canopy},
                                                                           is_drawn};
    }
  }
  return lattice;
}

void Draw_Canopy(Workspace& w, int image, const CanopyLattice& lattice) {
  Picture& pane = w.Form1.Picture1(image);
  const auto position = [&](const CanopyPoint& point) { return Pane_Of_Point(w, image, point.at); };
  const auto join = [&](const PanePosition& here, const CanopyPoint& neighbour) {
    if (!neighbour.is_drawn) return;
    const PanePosition there = position(neighbour);
    Draw_Line(pane, there.px, there.py, here.px, here.py, kRed);
  };
  for (std::size_t i = 0; i < kLines; ++i) {
    for (std::size_t j = 0; j < kLines; ++j) {
      if (!lattice[i][j].is_drawn) continue;
      const PanePosition here = position(lattice[i][j]);
      Plot_Block(pane, here.px, here.py, 1, kRed);
      if (i > 0) join(here, lattice[i - 1][j]);
      if (j > 0) join(here, lattice[i][j - 1]);
    }
  }
}

}  // namespace

void Add_Tin(Workspace& w) { Load_Tin(w, &Workspace::TinDem, 0); }

void Add_Tin_CHM(Workspace& w) { Load_Tin(w, &Workspace::TinChm, kCanopyLift); }

void Get_TIN_elevation(Workspace& w) {
  if (!w.SolutionValid) return;
  std::int32_t hint = 0;
  Show_Height(w, {Get_Tin_Elevation_Tiled(w, w.Solution3D.X, w.Solution3D.Y, hint), 2, kTopColour});
}

void Get_TIN_DTM_Opt(Workspace& w) {
  if (!w.SolutionValid) return;
  std::int32_t hint = 0;
  Show_Height(w, {Get_Tin_Elevation(w, w.Solution3D.X, w.Solution3D.Y, hint), 2, kTopColour});
}

void Get_TIN_CHM_Elev(Workspace& w) {
  if (!w.SolutionValid) return;
  std::int32_t hint = 0;
  Show_Height_Text(w, "Canopy: ", Get_Tin_Chm_Elevation(w, w.Solution3D.X, w.Solution3D.Y, hint));
  const CanopyLattice lattice = Canopy_Lattice(w);
  for (int k = 0; k < w.ImageCount; ++k) Draw_Canopy(w, k, lattice);
}

}  // namespace sylvomex
