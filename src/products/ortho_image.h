// SPDX-License-Identifier: MIT
// An orthoimage of one image over a raster height model, column by column.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "products/ortho_grid.h"
#include "products/ortho_heights.h"
#include "products/ortho_source.h"

namespace sylvomex {

/// The pixel that was read last, which cells beyond the end of the source repeat.
using LastPixel = std::array<std::uint8_t, 3>;

/// Fills columns first_col to last_col - 1 of a grid. The height and the source of cell (c, r) are
/// read one pixel further east and north than the cell, at (X0 + c pixel + pixel, Y0 + r pixel +
/// pixel). A byte position below 1 gives black; one beyond the end of the source repeats the pixel
/// read last, columns from the west and rows from the south being read one after the other. A pixel
/// that the end cuts through lies beyond it.
///
/// cells: the whole grid. last: of the columns before, left as it is behind the last column.
/// RunTimeErrors of Object_To_Pixel, RunTimeError(SubscriptOutOfRange) when cells is too short.
/// threads: 1 for the calling thread alone, 0 for all; the bytes are the same.
void Fill_Ortho_Columns(const OrthoGrid& grid, const OrthoSource& source,
                        const OrthoHeights& heights, std::int32_t first_col, std::int32_t last_col,
                        std::span<std::uint8_t> cells, LastPixel& last, int threads = 0);

}  // namespace sylvomex
