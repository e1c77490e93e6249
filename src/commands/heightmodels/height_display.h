// SPDX-License-Identifier: MIT
// Display of a height below the solution in the status line and in the panes.
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

/// Shows "Ground: 17.50 m Difference: .50 m" in bold, with `what` in place of "Ground: "; the
/// difference is the solution's Z minus the height.
void Show_Height_Text(Workspace& w, const char* what, double height);

/// Shows that text, and in every image a block at the solution and one at the ground below it, the
/// line between them and a scale of heights.
void Show_Height(Workspace& w, const HeightMark& mark);

}  // namespace sylvomex
