// SPDX-License-Identifier: MIT
#pragma once

namespace sylvomex {

/// Columns and rows of the raw file; first and last are both included.
struct ViewWindow {
  int first_col = 0;
  int first_row = 0;
  int last_col = 0;
  int last_row = 0;
  bool fits = true;  // false: larger than the raw file; the window is then the whole file
};

/// The window of view_width x view_height raw pixels around a centre, shifted to lie inside the
/// raw file of sub_width x sub_height pixels. An odd width that crosses the right edge
/// gives a window one column wider than requested; rows do not behave so (required).
ViewWindow Compute_View_Window(double sub_width, double sub_height, int centre_col, int centre_row,
                               int view_width, int view_height);

}  // namespace sylvomex
