// SPDX-License-Identifier: MIT
// The inner loop of an orthoimage: byte positions of some cells of a row. The widest vector unit
// is chosen at run time; every step is that of the camera model, so are the bits.
#pragma once

#include <cstddef>
#include <span>

#include "products/ortho_source.h"

namespace sylvomex {

/// The share of the columns in the camera axes: m11 dX, m21 dX and m31 dX.
struct ColumnAxes {
  std::span<const double> r, s, q;
};

/// Byte_Position of the cells of a row from their columns' shares, the row's dY = Y - Y0 and
/// heights Z in metres; NaN where the projection needs a closer look: for a point in the plane of
/// the projection centre and for results out of range. positions: as many as columns.
void Find_Byte_Positions(const OrthoSource& source, const ColumnAxes& columns, double dY,
                         std::span<const double> Z, std::span<double> positions);

}  // namespace sylvomex
