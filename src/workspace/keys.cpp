// SPDX-License-Identifier: MIT
#include "workspace/keys.h"

#include <string>

#include "commands/crowns/local_trees.h"
#include "imageblock/bitmap_file.h"
#include "panes/pane_drawing.h"
#include "platform/number_text.h"
#include "services/solution.h"
#include "services/status_line.h"
#include "state/camera_access.h"
#include "state/workspace.h"
#include "workspace/menu_modes.h"
#include "workspace/operator_event.h"

namespace sylvomex {
namespace {

constexpr int kKeyPadOne = 97;

void Save_First_Picture(Workspace& w) {
  const Picture& first = w.Form1.Picture1(0);
  const std::string name = "c:\\data\\" + Format(w.Plot.PlotNumber, "0000") + ".bmp";
  if (first.bitmap == nullptr) {
    throw RunTimeError(Failure::BadContent, "the first pane holds no picture to save as " + name);
  }
  Write_Pane_Bitmap(w.Drives.Locate(name), *first.bitmap);
}

void Choose_Species(Workspace& w, int index) {
  Check2_Click(w, index);
  w.Form1.Check2(index).Value = 1;
}

void Mark_Solution_On_Panes(Workspace& w) {
  for (int k = 0; k < w.ImageCount; ++k) {
    Picture& picture = w.Form1.Picture1(k);
    picture.DrawWidth = 3;
    const PanePosition at = Pane_Of_Point(w, k, w.Solution3D);
    Plot_Point(picture, at.px - 1, at.py - 1, kWhite);
    picture.DrawWidth = 1;
  }
}

void Move_Solution(Workspace& w, char letter) {
  const double step = w.options.StepLength;
  Point3D& solution = w.Solution3D;
  switch (letter) {
    case 'E':
      solution.X += step;
      break;
    case 'W':
      solution.X -= step;
      break;
    case 'N':
      solution.Y += step;
      break;
    case 'S':
      solution.Y -= step;
      break;
    case 'U':
      solution.Z += step;
      break;
    default:
      solution.Z -= step;
      break;
  }
  Show_Solution(w, kHundredths);
  Mark_Solution_On_Panes(w);
  Show_Status(w, std::string("Solution moved as ") + letter + " pressed by " + Plain_Text(step) +
                     " meters");
}

}  // namespace

void Form_KeyDown(Workspace& w, int key_code, int shift) {
  if (shift == kShift || shift == kCtrl) return;
  if (key_code == 'M') Save_Local_Tree(w);
  if (key_code == 'P') Show_Saved_Trees(w);
  if (key_code == 'L') Save_First_Picture(w);
  for (int index = 0; index < 4; ++index) {
    if (key_code == '1' + index || key_code == kKeyPadOne + index) Choose_Species(w, index);
  }
  // Key codes of letters are upper case. A lower-case letter's value is the code of another key,
  // which moves the solution as well (required).
  for (const char letter : {'U', 'D', 'W', 'E', 'N', 'S'}) {
    if (key_code == letter || key_code == letter - 'A' + 'a') Move_Solution(w, letter);
  }
  w.screen->Service_Events();
}

}  // namespace sylvomex
