// SPDX-License-Identifier: MIT
#include "commands/stereo/stereo_vectors.h"

#include "state/cause.h"
#include "state/workspace.h"

#include <string>
#include <vector>

#include "commands/stereo/recentring.h"
#include "commands/stereo/stereo_drawing.h"
#include "platform/list_reader.h"
#include "services/chosen_file.h"

namespace sylvomex {
namespace {

constexpr double kCrossReach = 4;  // pixels
constexpr double kTextSize = 10;   // points

/// Asks for a file and runs draw(reader) on it; what was drawn before a failure stays.
template <class Draw>
void Draw_File(Workspace& w, const char* title, Draw&& draw) {
  Require_Open_Pair(w);
  const auto file = Ask_File(w, {title, "TXT files (*.txt)|*.txt", 1, ""});
  if (!file) return;
  try {
    ListReader reader(*file);
    while (!reader.At_End()) draw(reader);
  } catch (const RunTimeError& error) {
    Show_With_Cause(w, "An error occurred", error);
  }
}

Point3D Read_Point(ListReader& reader) {
  Point3D point;
  point.X = reader.Read_Double();
  point.Y = reader.Read_Double();
  point.Z = reader.Read_Double();
  return point;
}

void Add_Marks(Workspace& w, const std::vector<Mark>& marks) {
  std::vector<Mark>& drawn = w.Form5.Picture1.marks;
  drawn.insert(drawn.end(), marks.begin(), marks.end());
}

void Print_At(Picture& picture, const PanePosition& at, const std::string& text, Colour colour) {
  picture.CurrentX = at.px;
  picture.CurrentY = at.py;
  picture.ForeColor = colour;
  Print_Text(picture, text);
}

void Draw_Text(Workspace& w, ListReader& reader) {
  const StereoPosition at = Object_To_Picture(w.Stereo, Read_Point(reader));
  const std::string text = reader.Read_Text_To_Comma();
  Picture& picture = w.Form5.Picture1;
  picture.font = {"Arial", kTextSize, false};
  Print_At(picture, at.left, text, kLeftColour);
  Print_At(picture, at.right, text, kRightColour);
}

bool Is_End_Of_Line(const Point3D& point) { return point.X == 0 && point.Y == 0 && point.Z == 0; }

void Draw_Line_Of_Points(Workspace& w, ListReader& reader) {
  std::vector<StereoPosition> line;
  while (!reader.At_End()) {
    const Point3D point = Read_Point(reader);
    if (Is_End_Of_Line(point)) break;
    line.push_back(Object_To_Picture(w.Stereo, point));
  }
  Add_Marks(w, Stereo_Lines(line, StereoStyle::Marked));
}

}  // namespace

void Plot_Id_XYZ_Point_Data(Workspace& w) {
  Draw_File(w, "File with rows of id, X, Y, Z", [&w](ListReader& reader) {
    reader.Skip_Empty_Lines();
    reader.Read_Text();
    const StereoPosition at = Object_To_Picture(w.Stereo, Read_Point(reader));
    Add_Marks(w, Stereo_Cross(at, kCrossReach, StereoStyle::Copied));
  });
}

void Plot_Floating_Text(Workspace& w) {
  Draw_File(w, "TXT file for X,Y,Z, text", [&w](ListReader& reader) { Draw_Text(w, reader); });
}

void Plot_Stereo_Line_Segments(Workspace& w) {
  Draw_File(w, "TXT file for line segments",
            [&w](ListReader& reader) { Draw_Line_Of_Points(w, reader); });
}

}  // namespace sylvomex
