// SPDX-License-Identifier: MIT
// Neighbouring columns of an orthoimage on their way to byte positions in a source: what all rows
// share is computed once.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "products/ortho_grid.h"
#include "products/ortho_heights.h"
#include "products/ortho_source.h"

namespace sylvomex {

class OrthoColumns {
 public:
  /// Columns first_col to first_col + count - 1. shift: how far east and north of a cell its
  /// height and its pixel are read, metres. source and heights must outlive this.
  OrthoColumns(const OrthoGrid& grid, const OrthoSource& source, const OrthoHeights& heights,
               std::int32_t first_col, std::int32_t count, double shift);

  [[nodiscard]] std::size_t Count() const { return X_.size(); }

  /// Byte_Position of each column's cell in a row, as many as columns. Z: room for as many.
  /// RunTimeErrors of Object_To_Pixel. May run in several threads at once.
  void Find_Positions(std::int32_t row, std::span<double> Z, std::span<double> positions) const;

 private:
  void Find_Heights(double Y, std::span<double> Z) const;

  const OrthoSource& source_;
  const OrthoHeights& heights_;
  double Y0_, pixel_, shift_;
  std::vector<double> X_, axis_r_, axis_s_, axis_q_;
  std::vector<std::uint64_t> model_cols_;
};

}  // namespace sylvomex
