// SPDX-License-Identifier: MIT
#include "imageblock/view_window.h"

#include <cstdint>

#include "platform/rounding.h"

namespace sylvomex {
namespace {

struct Extent {
  int first = 0;
  int last = 0;
};

/// One axis. overrun: extra columns or rows when an odd size is shifted back from the far edge.
Extent Compute_Extent(double raw_size, int centre, int view_size, int overrun) {
  const bool odd = view_size % 2 != 0;
  const double centre_at = centre;
  const double before = odd ? (view_size - 1.0) / 2 : view_size / 2.0 - 1.0;
  const double first = centre_at - before;
  if (first < 0) return {0, To_Int32(view_size - 1.0)};
  const double last = first + view_size - 1.0;
  if (!(last > raw_size - 1)) return {To_Int32(first), To_Int32(last)};
  const int edge = To_Int32(raw_size - 1);
  return {To_Int32(edge - view_size + 1.0 - (odd ? overrun : 0)), edge};
}

}  // namespace

ViewWindow Compute_View_Window(double sub_width, double sub_height, int centre_col, int centre_row,
                               int view_width, int view_height) {
  if (view_width > sub_width || view_height > sub_height) {
    return {0, 0, To_Int32(sub_width - 1), To_Int32(sub_height - 1), false};
  }
  const Extent cols = Compute_Extent(sub_width, centre_col, view_width, 1);
  const Extent rows = Compute_Extent(sub_height, centre_row, view_height, 0);
  return {cols.first, rows.first, cols.last, rows.last, true};
}

}  // namespace sylvomex
