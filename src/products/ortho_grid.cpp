// SPDX-License-Identifier: MIT
#include "products/ortho_grid.h"

#include <limits>
#include <string>

#include "platform/checked_arithmetic.h"
#include "platform/number_text.h"
#include "platform/rounding.h"

namespace sylvomex {
namespace {

std::int32_t Count_Cells(double extent, double pixel, const char* axis) {
  const std::int32_t steps =
      To_Int32(Quotient(extent, pixel, "the pixel size of the orthoimage is 0"));
  if (steps == std::numeric_limits<std::int32_t>::max()) {
    throw RunTimeError(Failure::Overflow,
                       Plain_Text(extent) + " m in pixels of " + Plain_Text(pixel) + " m");
  }
  if (steps >= 0) return steps + 1;
  throw RunTimeError(Failure::BadContent, std::string("an orthoimage with ") + axis + "-extent " +
                                              Plain_Text(extent) + " m in pixels of " +
                                              Plain_Text(pixel) + " m");
}

}  // namespace

OrthoGrid Make_Ortho_Grid(double X0, double Y0, double extent_x, double extent_y, double pixel) {
  return {X0, Y0, pixel, Count_Cells(extent_x, pixel, "X"), Count_Cells(extent_y, pixel, "Y")};
}

}  // namespace sylvomex
