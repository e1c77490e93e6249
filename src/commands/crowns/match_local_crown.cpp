// SPDX-License-Identifier: MIT
#include "commands/crowns/match_local_crown.h"

#include "state/cause.h"
#include "state/workspace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "commands/crowns/crown_drawing.h"
#include "commands/crowns/crown_exchange.h"
#include "commands/crowns/crown_inputs.h"
#include "commands/crowns/fit_next_crown.h"
#include "commands/lidar/lidar_inputs.h"
#include "crowns/crown_chain.h"
#include "crowns/species.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "services/status_line.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

constexpr double kTopShare = 0.95;  // of the height, above which echoes are taken
constexpr double kTopMargin = 1.0;  // metres above the height, from which they are not
constexpr const char* kNoSpecies = "none of Check2(0) to Check2(3) is ticked";
constexpr int kMinPoints = 3;
constexpr double kFirstRing = 0.1, kRingStep = 1;  // metres
constexpr int kRingWidth = 2;

// The tree that is measured, as the operator set it.
struct LocalSite {
  Point3D top;
  double ground = 0;
  double height = 0;  // above the ground, metres
  int species = 0;
};

struct LocalEchoes {
  std::vector<float> radial, depth;
  float highest = 0;  // above the ground, metres
};

// The start of the fit for species 0 to 4: the ticks are asked for once more before it.
using LocalStarts = std::array<CrownShape, kSpeciesCount + 1>;

LocalStarts Starts_Of_All_Species(double radius, double height) {
  LocalStarts starts;
  for (int s = 0; s <= kSpeciesCount; ++s) {
    starts[static_cast<std::size_t>(s)] = Local_Start_Shape(s, radius, height);
  }
  return starts;
}

CrownRecord Tree_Of(const LocalSite& site, const CrownShape& start) {
  CrownRecord crown{site.top.X, site.top.Y, To_Single(site.top.Z), To_Single(site.height), 1, 0,
                    0,          0};
  Set_Shape(crown, start);
  return crown;
}

// The highest echo, which is passed over, stands for the top at distance and depth 0.
LocalEchoes Take_Echoes(CrownEchoes& echoes, CrownRecord& crown) {
  LocalEchoes taken{{0}, {0}, 0};
  if (echoes.Count() > 0) echoes.Use(echoes.Count() - 1);
  const GrowthLimits limits{.above = kTopShare * crown.Height, .below = crown.Height + kTopMargin};
  for (const CrownEcho& echo : echoes.Grow(crown, limits)) {
    taken.radial.push_back(echo.radial);
    taken.depth.push_back(echo.depth);
    Require_Crown_Room(1, crown, taken.radial.size());
    taken.highest = std::max(taken.highest, echoes.At(echo.rank).Normal_Height());
  }
  crown.PointCount = static_cast<std::int32_t>(taken.radial.size());
  return taken;
}

std::string Parameter_Line(const CrownFit& fit, const CrownRecord& crown) {
  std::string line =
      Plain_Text(fit.counter) + "," + Plain_Text(crown.PointCount) + "," + Plain_Text(crown.Height);
  for (const double value : {fit.shape.a, fit.shape.p, fit.shape.b, fit.rmse}) {
    line += "," + Plain_Text(value);
  }
  return line + "\n";
}

CrownFit Fit_Local_Crown(Workspace& w, const LocalEchoes& taken, const CrownRecord& crown) {
  std::string lines;
  const CrownFit fit =
      Fit_Crown({taken.radial, taken.depth, crown.Height}, Shape_Of(crown), kLocalTreeFit,
                Solver_With_Files(w.Drives),
                [&](const CrownFit& step) { lines += Parameter_Line(step, crown); });
  if (!lines.empty()) Append_To_File(w.Drives.Locate("c:\\data\\parameters.txt"), lines);
  return fit;
}

double Crown_Diameter(const CrownFit& fit, double height) {
  return 2 * Radius_At_Sine(fit.shape, height, std::sin((1 - kTopShare) * 4));
}

void Draw_Local_Crown(Workspace& w, const CrownRecord& crown) {
  const double last = (1 - kTopShare) * crown.Height;
  for (const double depth : Ring_Depths(kFirstRing, last, kRingStep)) {
    Draw_Ring(w, crown, depth, Depth_Colour(depth), kRingWidth);
  }
  Picture& pane = w.Form1.Picture1(1);
  pane.font.size = 12;
  pane.CurrentX -= 50;
  pane.CurrentY += 20;
}

void Fill_Record(LocalTree& tree, const LocalSite& site, const LocalEchoes& taken,
                 const CrownFit& fit, double diameter) {
  tree.TreeNumber = To_Int16(tree.TreeNumber + 1);
  tree.Species = To_Byte(site.species);
  tree.X = site.top.X;
  tree.Y = site.top.Y;
  tree.Z = site.top.Z;
  tree.GroundZ = To_Single(site.ground);
  tree.TreeHeight = To_Single(site.height);
  tree.LidarMax = taken.highest;
  tree.LidarCrownWidth = To_Single(diameter);
  tree.FitRmse = To_Single(fit.rmse);
  tree.FitA = fit.shape.a;
  tree.FitP = fit.shape.p;
  tree.FitB = fit.shape.b;
}

// Stem diameters by the lidar's crown width for species 1 to 4, then by the photographs': those
// of the tree's own species, the others 0.
std::array<double, 8> Stem_Diameters(Workspace& w, const LocalTree& tree, double diameter) {
  std::array<double, 8> diameters{};
  const auto report = [&](std::string_view text) {
    Show_With_Cause(w, text,
                    "stem of species " + Plain_Text(int{tree.Species}) + ", crown widths " +
                        Plain_Text(diameter) + " and " + Plain_Text(tree.PhotoCrownWidth) +
                        " m, height " + Plain_Text(tree.TreeHeight) + " m");
  };
  if (tree.Species == 0) return diameters;
  const std::size_t own = tree.Species - std::size_t{1};
  diameters[own] = Stem_Diameter(tree.Species, diameter, tree.TreeHeight, report);
  diameters[own + 4] = Stem_Diameter(tree.Species, tree.PhotoCrownWidth, tree.TreeHeight, report);
  return diameters;
}

std::string Measures_Line(Workspace& w, const LocalTree& tree, const CrownRecord& crown,
                          double diameter) {
  std::string line;
  for (const double stem : Stem_Diameters(w, tree, diameter)) line += Plain_Text(stem) + ",";
  line += Plain_Text(crown.X) + "," + Plain_Text(crown.Y) + ",";
  line += Plain_Text(crown.TopZ) + "," + Plain_Text(crown.Height) + ",";
  line += Plain_Text(tree.LidarMax) + ",";
  for (const double value : {tree.FitA, tree.FitP, tree.FitB}) line += Plain_Text(value) + ",";
  line += Plain_Text(tree.PhotoCrownWidth) + "," + Plain_Text(diameter) + ",";
  return line + Plain_Text(tree.FitRmse) + "," + Plain_Text(int{tree.Species}) + "\n";
}

void Measure_Local_Crown(Workspace& w, LocalSite& site, CrownEchoes& echoes,
                         const LocalStarts& starts) {
  w.Crowns.CrownTrees = {};
  w.Crowns.TreeCount = 0;
  Show_Status(w, "Fitting crowns...");
  site.species = Get_Species(w);
  if (site.species == 0) Show_With_Cause(w, "Species became 0", kNoSpecies);
  CrownRecord crown =
      About(w, "the tree at the solution: Z of its top and its height, in metres",
            [&] { return Tree_Of(site, starts[static_cast<std::size_t>(site.species)]); });
  const LocalEchoes taken = Take_Echoes(echoes, crown);
  w.Crowns.CrownTrees(1) = crown;
  w.Crowns.TreeCount = 1;
  if (crown.PointCount < kMinPoints) {
    Show_With_Cause(w, "Too few LiDAR points!",
                    Plain_Text(std::int32_t{crown.PointCount}) + " echoes in the crown, " +
                        Plain_Text(std::int32_t{kMinPoints}) + " are needed");
    return;
  }
  const CrownFit fit = Fit_Local_Crown(w, taken, crown);
  Set_Shape(crown, fit.shape);
  w.Crowns.CrownTrees(1) = crown;
  if (fit.verdict == CrownVerdict::NotSolvable) {
    Show_Status(w, "Fitting FAIL, iterations: " + Fit_Text(fit, crown.PointCount));
    return;
  }
  const double diameter = Crown_Diameter(fit, crown.Height);
  Draw_Local_Crown(w, crown);
  LocalTree& tree = w.Crowns.LocalTreeRecord;
  About(w, "the record of the tree: its number, ground, height, crown width and RMSE",
        [&] { Fill_Record(tree, site, taken, fit, diameter); });
  w.Form1.Label10.FontSize = 8;
  Show_Status(w, "Dcrm: " + Format(diameter, "0.0 m") +
                     " LidarMax: " + Format(tree.LidarMax, "0.0 m") +
                     " Foto-h: " + Format(tree.TreeHeight, "0.0 m"));
  w.Crowns.LidarFitDone = true;
  Append_To_File(w.Drives.Locate("c:\\data\\testmeasures.txt"),
                 Measures_Line(w, tree, crown, diameter));
}

}  // namespace

void Match_Local_Crown(Workspace& w) {
  if (Read_Tile(w, Campaign::Als2006, Solution_Tile(w, Campaign::Als2006)) == 0) return;
  LocalSite site{w.Solution3D, Get_Raster_Elevation(w, w.Solution3D.X, w.Solution3D.Y), 0,
                 Get_Species(w)};
  site.height = site.top.Z - site.ground;
  if (site.species == 0) {
    Show_With_Cause(w, "Species unresolved", kNoSpecies);
    return;
  }
  const double radius = Search_Radius(site.species, site.height);
  const LocalStarts starts = Starts_Of_All_Species(radius, site.height);
  Show_Status(w, "Reading lidar data for the area...");
  CrownEchoes echoes = Sort_Echoes(w, Gather_Echoes(w, [&](double X, double Y) {
                                     return std::sqrt((X - site.top.X) * (X - site.top.X) +
                                                      (Y - site.top.Y) * (Y - site.top.Y)) < radius;
                                   }));
  Measure_Local_Crown(w, site, echoes, starts);
}

}  // namespace sylvomex
