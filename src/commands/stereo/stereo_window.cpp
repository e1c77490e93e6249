// SPDX-License-Identifier: MIT
#include "commands/stereo/stereo_window.h"

#include "state/cause.h"
#include "state/workspace.h"

#include <cmath>
#include <string>
#include <utility>

#include "commands/stereo/recentring.h"
#include "platform/number_text.h"
#include "platform/replacing_file.h"
#include "services/chosen_file.h"
#include "stereo/pair_file.h"
#include "stereo/stereo_view.h"

namespace sylvomex {
namespace {

constexpr const char* kTextFiles = "TXT files (*.txt)|*.txt";
constexpr double kFrame = 4;  // both sides of the picture together, pixels

void Lay_Out(Workspace& w) {
  Form5State& form = w.Form5;
  Picture& picture = form.Picture1;
  picture.Width = w.Stereo.StereoWidth + kFrame;
  picture.Height = w.Stereo.StereoHeight + kFrame;
  picture.Left = std::floor((form.ClientWidth - picture.Width) / 2);
  form.Label1.Left = picture.Left;
  form.Label1.Width = picture.Width;
}

StereoPair Read_Pair(const FilePath& file) {
  ListReader reader(file);
  StereoPair pair = Read_Pair_File(reader);
  const Point3D& left = pair.left.centre;
  const Point3D& right = pair.right.centre;
  if (left.X != right.X || left.Y != right.Y || left.Z != right.Z) return pair;
  throw RunTimeError(Failure::BadContent,
                     file.name + ": both projection centres are the same, the base has no length",
                     file.native);
}

std::string Point_Line(std::size_t id, const Point3D& point) {
  std::string line = std::to_string(id);
  for (const double value : {point.X, point.Y, point.Z}) line += "," + Format(value, "#.00");
  return line + "\n";
}

std::string Measured_Text(const StereoState& state) {
  std::string text;
  std::size_t id = 0;
  for (const Point3D& point : state.MeasuredPoints) text += Point_Line(++id, point);
  return text;
}

}  // namespace

void Open_Stereo_window(Workspace& w) {
  w.Form5.Visible = true;
  Set_Focus(w.Form5, "Picture1");
  Form5_Resize(w);
}

void Form5_Resize(Workspace& w) {
  Set_Picture_Size(w.Stereo, w.Form5.ClientWidth, w.Form5.ClientHeight);
  Lay_Out(w);
  const StereoState& state = w.Stereo;
  const bool has_place = state.Pair.start.X > 1 && state.StereoSolution.X >= 1;
  if (state.PairOpen && has_place) Recentre(w, state);
}

void Open_Pair(Workspace& w) {
  const auto file = Ask_File(w, {"Stereo pair file", kTextFiles, 1, ""});
  if (!file) return;
  StereoState next;
  next.Pair = Read_Pair(*file);
  next.PairOpen = true;
  next.StereoSolution = next.Pair.start;
  Set_Picture_Size(next, w.Form5.ClientWidth, w.Form5.ClientHeight);
  Named_In(w, file->name, [&] { Recentre(w, std::move(next)); });
}

void Save_point_File(Workspace& w) {
  const auto file = Ask_File(w, {"File with id, X, Y, Z", kTextFiles, 1, ""});
  if (!file) return;
  try {
    const std::string text = Measured_Text(w.Stereo);
    Replace_Whole_File(*file, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  } catch (const RunTimeError& error) {
    Show_With_Cause(w, "An error occurred!", error);
  }
}

void Exit_stereo(Workspace& w) {
  w.Form5.Visible = false;
  Set_Focus(w.Form1, "");
}

void Clear_Anaglyph_Window(Workspace& w) { Erase_Marks(w.Form5.Picture1); }

void Retrieve(Workspace& w) {
  Require_Open_Pair(w);
  Recentre_At(w, w.Solution3D);
}

void Form5_About(Workspace& w) {
  w.screen->Message_Box(
      "Look at the picture through red and cyan glasses, red before the left eye."
      " Move the mouse to move the mark in X and Y, press U and D to move it up and down"
      " by 0.01 m. A double click keeps the mark as a measured point and brings it to"
      " the middle of the picture.",
      Buttons::Ok, "Anaglyph stereo");
}

}  // namespace sylvomex
