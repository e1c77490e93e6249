// SPDX-License-Identifier: MIT
// A mosaic of several images, worked in square tiles of which each is served by one image.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "products/ortho_grid.h"
#include "products/ortho_heights.h"
#include "products/ortho_source.h"

namespace sylvomex {

inline constexpr std::int32_t kTileCells = 100;  // side of a tile

/// Some cells of a grid, in full-grid columns and rows. At the grid's edges tiles are smaller.
struct OrthoTile {
  std::int32_t first_col = 0, first_row = 0;
  std::int32_t columns = 0, rows = 0;
};

/// How many tiles cover so many cells.
inline std::int32_t Tile_Count(std::int32_t cells) { return (cells - 1) / kTileCells + 1; }

/// The tile in a column and a row of tiles, counted from the west and the south.
OrthoTile Tile_At(const OrthoGrid& grid, std::int32_t tile_col, std::int32_t tile_row);

/// The first camera, in order, that sees the middle of a tile's lower left cell, taken at the
/// height 160 m, within the central 0.18 m by 0.18 m of its film, the limits excluded; nothing when
/// none does. Nadir distances are not compared.
std::optional<std::size_t> Serving_Camera(std::span<const Camera> cameras, const OrthoGrid& grid,
                                          const OrthoTile& tile);

/// Reads the cells of a tile at their own places. A byte position outside the source leaves a
/// cell as it was.
///
/// cells: rows of three bytes a cell, of which `stride` cells make a row; the first is the tile's
/// lower left cell. A source of one byte a pixel gives three equal bytes. RunTimeErrors of
/// Object_To_Pixel.
void Fill_Tile(const OrthoGrid& grid, const OrthoSource& source, const OrthoHeights& heights,
               const OrthoTile& tile, std::uint8_t* cells, std::size_t stride);

}  // namespace sylvomex
