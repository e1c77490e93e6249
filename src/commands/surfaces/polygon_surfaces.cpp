// SPDX-License-Identifier: MIT
#include "commands/surfaces/polygon_surfaces.h"

#include <string>

#include "commands/surfaces/polygon_scan.h"
#include "commands/surfaces/surface_inputs.h"
#include "overlays/colour_map.h"
#include "platform/files.h"
#include "platform/line_file.h"
#include "platform/number_text.h"
#include "services/file_names.h"
#include "services/hourglass.h"
#include "state/workspace.h"
#include "surfaces/height_colour.h"

namespace sylvomex {
namespace {

void Mark_Pair_Point(Workspace& w, int image, const SurfaceCandidate& found, Colour colour) {
  Picture& picture = w.Form1.Picture1(image);
  const PanePosition place = Pane_Of_Surface_Point(w, image, found);
  picture.DrawWidth = 3;
  Plot_Point(picture, place.px, place.py, colour);
  picture.DrawWidth = 1;
}

void Mark_Triplet_Point(Workspace& w, int image, const SurfaceCandidate& found, double ground) {
  constexpr Colour kLetters{125, 255, 125};
  Picture& picture = w.Form1.Picture1(image);
  const PanePosition place = Pane_Of_Surface_Point(w, image, found);
  picture.DrawWidth = 3;
  Plot_Point(picture, place.px, place.py, kSurfaceMark);
  picture.ForeColor = kLetters;
  picture.font.size = 12;
  Print_Beside(picture, place, kFirstLineBelow, Score_Text(found));
  Print_Beside(picture, place, kSecondLineBelow, Ground_Text(ground));
  picture.DrawWidth = 1;
}

}  // namespace

void Get_Surface_Height_InCdll(Workspace& w) {
  LineFile nodes(w.Drives.Locate(kSurfaceNodeFile));
  const ColourMap colours = Read_Colour_Map(w.Drives.Locate(kColourMapFile));
  PolygonScan scan(w, kPairSurface);
  const HourglassGuard hourglass(w);
  const PolygonScan::Counts counts = scan.Run([&](const SurfaceCandidate& found, double) {
    nodes.Write(Point_Text(found) + "\n");
    const Colour colour = colours(Height_Colour_Row(found.Z));
    for (const int image : {0, 1}) Mark_Pair_Point(w, image, found, colour);
  });
  if (counts.begun) {
    w.screen->Message_Box("Points with no texture: " + std::to_string(counts.without_texture));
  }
  nodes.Close();
}

void Triplet_Matching(Workspace& w) {
  const FilePath nodes = w.Drives.Locate(kSurfaceNodeFile);
  LineFile(nodes).Close();
  PolygonScan scan(w, kTripletSurface);
  if (const auto bytes = scan.Strip_Bytes()) {
    w.screen->Message_Box("Read " + Plain_Text(*bytes) + " bytes");
  }
  const HourglassGuard hourglass(w);
  scan.Run([&](const SurfaceCandidate& found, double ground) {
    Append_To_File(nodes, Point_Text(found) + "," + Plain_Text(ground) + "\n");
    for (const int image : {0, 1, 2}) Mark_Triplet_Point(w, image, found, ground);
  });
}

}  // namespace sylvomex
