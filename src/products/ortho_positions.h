// SPDX-License-Identifier: MIT
// The inner loops of orthoimages: byte positions of some cells of a row. The widest vector unit
// is chosen at run time; every step is that of the camera model, so are the bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "products/ortho_source.h"

namespace sylvomex {

/// The share of the columns in the camera axes: m11 dX, m21 dX and m31 dX.
struct ColumnAxes {
  std::span<const double> r, s, q;
};

/// Byte_Position of the cells of a row from their columns' shares, the row's dY = Y - Y0 and
/// heights Z in metres; NaN where the projection needs a closer look: for a point in the plane of
/// the projection centre, for a principal distance of 0 and for results out of range. positions: as
/// many as columns.
void Find_Byte_Positions(const OrthoSource& source, const ColumnAxes& columns, double dY,
                         std::span<const double> Z, std::span<double> positions);

/// A source may have so many bytes that its offsets have 31 bits.
inline constexpr std::size_t kMostOffsetBytes = std::size_t{1} << 31;

/// The offset of a cell that is not read.
inline constexpr std::uint32_t kNoOffset = ~std::uint32_t{0};

/// What the cells of a row are.
struct RowCells {
  bool any_read = false;
  bool any_black = false;  // below the lowest position: kNoOffset
  bool any_other =
      false;  // within four bytes of the source's end, beyond it, or NaN: kNoOffset, too
};

/// The positions of Find_Byte_Positions as offsets where four bytes can be read from a position not
/// below `lowest`, which is 0 or more. source: of at most kMostOffsetBytes.
RowCells Find_Byte_Offsets(const OrthoSource& source, const ColumnAxes& columns, double dY,
                           std::span<const double> Z, double lowest,
                           std::span<std::uint32_t> offsets);

}  // namespace sylvomex
