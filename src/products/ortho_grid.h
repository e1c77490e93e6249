// SPDX-License-Identifier: MIT
// The cells of an orthoimage. Column 0 is the westernmost, row 0 the southernmost; in memory and
// in the file columns run fastest.
#pragma once

#include <cstdint>

namespace sylvomex {

struct OrthoGrid {
  double X0 = 0, Y0 = 0;  // lower left corner, metres
  double pixel = 0;       // side of a cell, metres
  std::int32_t columns = 0;
  std::int32_t rows = 0;

  [[nodiscard]] std::uint64_t Cells() const {
    return static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(rows);
  }
};

/// Extents in metres; columns and rows are round(extent / pixel) + 1. RunTimeError(DivisionByZero)
/// for a pixel of 0, RunTimeError(Overflow) beyond 32 bits, RunTimeError(BadContent) naming the
/// extent when it gives no column or row.
OrthoGrid Make_Ortho_Grid(double X0, double Y0, double extent_x, double extent_y, double pixel);

}  // namespace sylvomex
