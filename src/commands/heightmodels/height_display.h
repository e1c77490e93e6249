// SPDX-License-Identifier: MIT
// How a height under the solution is shown in the status line and in the panes.
#pragma once

#include "platform/colour.h"

namespace sylvomex {

struct Workspace;

inline constexpr Colour kTopColour{100, 255, 0};

struct HeightMark {
  double ground = 0;  // metres
  int reach = 2;      // of the two blocks, pane pixels
  Colour top_colour;  // of the block at the solution
};

/// "Ground: 17.50 m Difference: .50 m" in bold, what standing for "Ground: "; the difference is
/// that of the solution's Z.
void Show_Height_Text(Workspace& w, const char* what, double height);

/// That text, and in every image blocks at the solution and at the ground below it, the line
/// between them and a scale of heights.
void Show_Height(Workspace& w, const HeightMark& mark);

}  // namespace sylvomex
