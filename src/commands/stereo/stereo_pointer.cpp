// SPDX-License-Identifier: MIT
#include "commands/stereo/stereo_pointer.h"

#include "state/workspace.h"

#include "commands/stereo/recentring.h"
#include "commands/stereo/stereo_drawing.h"
#include "stereo/stereo_view.h"

namespace sylvomex {
namespace {

constexpr double kHeightStep = 0.01;  // metres

/// The code of a lower-case letter is that of another key, which has the same effect.
bool Is_Letter(int key_code, char letter) {
  return key_code == letter || key_code == letter - 'A' + 'a';
}

void Take_Mark_To(Workspace& w, const Point3D& point) {
  Move_Mark(w.Stereo, point);
  Show_Mark(w);
  Draw_Floating_Mark(w);
}

}  // namespace

void Form5_Picture1_MouseMove(Workspace& w, double px, double py) {
  if (!w.Stereo.PairOpen) return;
  if (const auto point = Point_Under_Pointer(w.Stereo, px, py)) Take_Mark_To(w, *point);
  w.screen->Service_Events();
}

void Form5_Picture1_KeyDown(Workspace& w, int key_code) {
  const bool up = Is_Letter(key_code, 'U');
  if (!w.Stereo.PairOpen || (!up && !Is_Letter(key_code, 'D'))) return;
  Point3D mark = w.Stereo.StereoSolution;
  mark.Z += up ? kHeightStep : -kHeightStep;
  Take_Mark_To(w, mark);
}

void Form5_Picture1_DblClick(Workspace& w) {
  if (!w.Stereo.PairOpen) return;
  w.Stereo.MeasuredPoints.push_back(w.Stereo.StereoSolution);
  Recentre(w, w.Stereo);
}

}  // namespace sylvomex
