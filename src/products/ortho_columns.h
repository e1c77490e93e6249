// SPDX-License-Identifier: MIT
// Neighbouring columns of an orthoimage on their way to byte positions in a source: what all rows
// share is computed once.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "products/ortho_grid.h"
#include "products/ortho_heights.h"
#include "products/ortho_positions.h"

namespace sylvomex {

/// The heights of a row's cells, kept for the next row, which often lies in the same row of the
/// model.
struct RowHeights {
  std::vector<double> Z;                   // metres
  std::optional<std::uint64_t> model_row;  // that they are of; nothing before the first row
};

class OrthoColumns {
 public:
  /// Columns first_col to first_col + count - 1. shift: how far east and north of a cell its
  /// height and its pixel are read, metres. source and heights must outlive this.
  OrthoColumns(const OrthoGrid& grid, const OrthoSource& source, const OrthoHeights& heights,
               std::int32_t first_col, std::int32_t count, double shift);

  [[nodiscard]] std::size_t Count() const { return X_.size(); }

  /// Byte_Position of each column's cell in a row. RunTimeErrors of Object_To_Pixel. Here and below
  /// calls with different scratch may run at the same time.
  void Find_Positions(std::int32_t row, RowHeights& scratch, std::span<double> positions) const;

  /// Find_Byte_Offsets of the same.
  RowCells Find_Offsets(std::int32_t row, RowHeights& scratch, double lowest,
                        std::span<std::uint32_t> offsets) const;

 private:
  [[nodiscard]] double Y_Of(std::int32_t row) const { return Y0_ + row * pixel_ + shift_; }
  void Find_Heights(double Y, RowHeights& scratch) const;

  const OrthoSource& source_;
  const OrthoHeights& heights_;
  double Y0_, pixel_, shift_;
  std::vector<double> X_, axis_r_, axis_s_, axis_q_;
  std::vector<std::uint64_t> model_cols_;
};

/// Copies the pixels at the offsets of Find_Byte_Offsets; kNoOffset gives black. cells: as many
/// bytes a cell as the source has.
void Copy_Pixels(const OrthoSource& source, std::span<const std::uint32_t> offsets,
                 std::uint8_t* cells);

}  // namespace sylvomex
