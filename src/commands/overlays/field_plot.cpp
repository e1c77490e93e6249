// SPDX-License-Identifier: MIT
#include "commands/overlays/field_plot.h"

#include <string>

#include "commands/overlays/field_dialogs.h"
#include "overlays/ground_difference.h"
#include "overlays/plot_geometry.h"
#include "overlays/plot_text.h"
#include "panes/pane_drawing.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "services/kept_file.h"
#include "state/camera_access.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kListing = "c:\\temp\\mk_trees.txt";
constexpr const char* kScratchListing = "c:\\data\\plot_trees.txt";
constexpr Colour kNumberColour{0, 255, 255};

// Draws a line of the grid at ground height. Heights below 0 mean no ground; such vertices are
// skipped.
void Draw_On_Ground(Workspace& w, int image, const PlanLine& line) {
  Picture& pane = w.Form1.Picture1(image);
  bool has_start = false;
  PanePosition from;
  for (const PlanPosition& vertex : line) {
    const double ground = Get_Raster_Elevation(w, vertex.X, vertex.Y);
    if (ground < 0) continue;
    const PanePosition to = Overlay_Of_Point(w, image, {vertex.X, vertex.Y, ground});
    if (has_start) Draw_Line(pane, from.px, from.py, to.px, to.py, kWhite);
    from = to;
    has_start = true;
  }
}

void Draw_Grid(Workspace& w) {
  for (int k = 0; k < w.ImageCount; ++k) {
    w.Form1.Picture1(k).DrawWidth = 1;
    for (const PlanLine& line : Hundred_Metre_Grid(w.Solution3D.X, w.Solution3D.Y)) {
      Draw_On_Ground(w, k, line);
    }
  }
}

void Write_Listing(const Workspace& w, const std::string& lines) {
  Write_Whole_File(w.Drives.Locate(kListing), lines);
  Write_Whole_File(w.Drives.Locate(kScratchListing), lines);
}

std::string Listing_Line(const PlotTree& tree, const TreePlace& place) {
  std::string line;
  for (const double value :
       {place.MapX, place.MapY, place.TopZ, place.BaseZ, tree.Dbh, tree.TreeHeight}) {
    line += Format(value, "#.00") + ",";
  }
  return line + Plain_Text(tree.TreeId) + "," + Plain_Text(tree.TreeSpecies) + "," +
         Plain_Text(tree.TreeCode) + "\n";
}

Colour Class_Colour(std::int32_t species) {
  if (species == 1) return kYellow;
  return species == 2 ? kGreen : kWhite;
}

void Draw_Tree(Workspace& w, int image, const PlotTree& tree, const TreePlace& place) {
  Picture& pane = w.Form1.Picture1(image);
  const PanePosition at = Overlay_Of_Point(w, image, {place.MapX, place.MapY, place.TopZ});
  pane.DrawWidth = 3;
  Plot_Point(pane, at.px, at.py, Class_Colour(tree.TreeSpecies));
  if (!w.options.IncludeTreeNumbers) return;
  pane.font = {"Arial", 8, false};
  pane.ForeColor = kNumberColour;
  Print_Text(pane, Plain_Text(tree.TreeId));
}

bool Is_Drawn(const Workspace& w, const PlotTree& tree) {
  return tree.TreeHeight > w.options.PlotTreesMinHeight && tree.TreeCode >= 0;
}

void Draw_Trees(Workspace& w, PlotTextReader& plot, GroundDifference& difference,
                std::string& listing) {
  while (const auto tree = plot.Next_Tree()) {
    const TreePlace place = Place_Tree(plot.Header(), *tree);
    const double ground = Get_Raster_Elevation(w, place.MapX, place.MapY);
    difference.Add(ground, place.BaseZ, tree->TreeHeight);
    listing += Listing_Line(*tree, place);
    if (!Is_Drawn(w, *tree)) continue;
    for (int k = 0; k < w.ImageCount; ++k) Draw_Tree(w, k, *tree, place);
  }
}

void Draw_And_List_Trees(Workspace& w, const FilePath& file, GroundDifference& difference) {
  PlotTextReader plot{ListReader(file)};
  std::string listing;
  Write_However_It_Ends([&] { Draw_Trees(w, plot, difference, listing); },
                        [&] { Write_Listing(w, listing); });
}

void Plot_Chosen_File(Workspace& w) {
  Write_Listing(w, "");
  const auto chosen = Ask_Plot_Text_File(w);
  if (!chosen) return;
  const FilePath& file = *chosen;
  GroundDifference difference;
  Draw_And_List_Trees(w, file, difference);
  if (difference.count == 0) {
    throw RunTimeError(Failure::DivisionByZero, file.name + ": a mean of no trees", file.native);
  }
  w.screen->Message_Box("Mean difference: " + Format(difference.Mean(), "0.00 m") +
                        " RMSE: " + Format(difference.Rmse(), "0.00 m"));
}

}  // namespace

void Plot_Field_Plot_Data(Workspace& w) {
  Draw_Grid(w);
  Or_Former_File(w.Drives.Locate(kListing), [&w] {
    Or_Former_File(w.Drives.Locate(kScratchListing), [&w] { Plot_Chosen_File(w); });
  });
}

}  // namespace sylvomex
