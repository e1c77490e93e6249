// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

/// Columns and rows of the raw file, first and last included.
struct ViewWindow {
  int first_col = 0;
  int first_row = 0;
  int last_col = 0;
  int last_row = 0;
  bool fits = true;  // false: larger than the raw file, the window is then the whole file
};

/// The window of view_width by view_height raw pixels around a centre, pushed inside the
/// raw file of sub_width by sub_height pixels. An odd width that runs over the right edge
/// gives a window one column wider than asked for; rows do not.
ViewWindow Compute_View_Window(double sub_width, double sub_height, int centre_col, int centre_row,
                               int view_width, int view_height);

}  // namespace sylvomex
