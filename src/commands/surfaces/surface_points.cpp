// SPDX-License-Identifier: MIT
#include "commands/surfaces/surface_points.h"

#include <optional>
#include <string>

#include "commands/panes/centring.h"
#include "commands/surfaces/surface_inputs.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/sound_reads.h"
#include "state/box_numbers.h"
#include "state/workspace.h"

namespace sylvomex {
namespace {

constexpr const char* kCandidateFile = "c:\\data\\testi.txt";
constexpr const char* kPairHeightFile = "c:\\data\\testi_89_manual2.txt";
constexpr const char* kTripletNodeFile = "c:\\temp\\FotoKork_Asfalttitie.nod";

/// Nothing for a place without texture.
std::optional<SurfaceSearch> Search_At_Boxes(Workspace& w, const SearchSettings& settings) {
  const double centre = w.SolutionValid ? w.Solution3D.Z : kCentreWithoutSolution;
  const SurfaceImage fixed = Open_Surface_Image(w, settings.fixed_image);
  const FilmPosition film = Film_In_Boxes(w, settings.fixed_image);
  const auto window = Textured_Window(settings, fixed, film, centre);
  std::optional<SurfaceSearch> search;
  if (window) {
    search = Search_Vertical_Line(settings, *window, fixed.camera, Open_Moving_Images(w, settings),
                                  film, centre);
  }
  Require_Sound_Reads();
  return search;
}

void Write_Candidates(const Workspace& w, const SurfaceSearch& search) {
  std::string text;
  for (const SurfaceCandidate& row : search.candidates) {
    text += Plain_Text(row.Correlation) + "," + Point_Text(row) + "\n";
  }
  Write_Whole_File(w.Drives.Locate(kCandidateFile), text);
}

struct FoundPoint {
  SurfaceCandidate at;
  double ground = 0;  // raster elevation, metres
  bool accepted = false;
};

std::optional<FoundPoint> Find_Point(Workspace& w, const SearchSettings& settings) {
  const auto search = Search_At_Boxes(w, settings);
  if (!search) return std::nullopt;
  FoundPoint found;
  found.at = search->Best();
  found.ground = Take_Surface_Point(w, found.at);
  found.accepted = found.at.Correlation > settings.acceptance;
  Write_Candidates(w, *search);
  return found;
}

void Append_Line(const Workspace& w, const char* file, const std::string& line) {
  Append_To_File(w.Drives.Locate(file), line + "\n");
}

/// The point and the letters' colour; the texts follow.
PanePosition Begin_Mark(Workspace& w, int image, const FoundPoint& found) {
  Picture& picture = w.Form1.Picture1(image);
  const PanePosition place = Pane_Of_Surface_Point(w, image, found.at);
  picture.DrawWidth = 3;
  Plot_Point(picture, place.px, place.py, kSurfaceMark);
  picture.ForeColor = kSurfaceMark;
  picture.font.bold = true;
  return place;
}

void Mark_Pair_Point(Workspace& w, int image, const FoundPoint& found) {
  const PanePosition place = Begin_Mark(w, image, found);
  Picture& picture = w.Form1.Picture1(image);
  picture.font.size = 12;
  Print_Beside(picture, place, kFirstLineBelow, Score_Text(found.at));
  Print_Beside(picture, place, kSecondLineBelow, Ground_Text(found.ground));
  picture.DrawWidth = 1;
}

void Mark_Triplet_Point(Workspace& w, int image, const FoundPoint& found) {
  constexpr double kThirdLineBelow = 50;  // pane units
  const PanePosition place = Begin_Mark(w, image, found);
  Picture& picture = w.Form1.Picture1(image);
  picture.font.size = 9;
  Print_Beside(picture, place, kFirstLineBelow, Score_Text(found.at));
  picture.font.size = 13;
  Print_Beside(picture, place, kSecondLineBelow, Ground_Text(found.ground));
  Print_Beside(picture, place, kThirdLineBelow, "H: " + Format(found.at.Z - found.ground, "0.0 m"));
  picture.DrawWidth = 1;
}

}  // namespace

void Get_Surface_Height(Workspace& w) {
  const auto found = Find_Point(w, kPairPoint);
  if (!found) return;
  const std::string point = Point_Text(found->at);
  if (found->accepted) {
    Append_Line(w, kSurfaceNodeFile, point);
    Append_Line(w, kPairHeightFile, point + "," + Format(found->at.Z - found->ground, "#.00 "));
  }
  Center_to_xyz_click(w);
  if (!found->accepted) return;
  for (const int image : {0, 1}) Mark_Pair_Point(w, image, *found);
}

void Get_surface_single_point_triplet(Workspace& w) {
  const auto found = Find_Point(w, kTripletPoint);
  if (!found) return;
  if (found->accepted) {
    Append_Line(w, kTripletNodeFile, Point_Text(found->at) + "," + Plain_Text(found->ground));
  }
  Center_to_xyz_click(w);
  for (const int image : {0, 1, 2}) Mark_Triplet_Point(w, image, *found);
}

}  // namespace sylvomex
