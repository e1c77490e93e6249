// SPDX-License-Identifier: MIT
#include "region/plan_record.h"

#include <algorithm>
#include <cmath>

namespace sylvomex {
namespace {

int Tiles_In(int cells, int tile) { return (cells + tile - 1) / tile; }

int Cells_In(double extent, double cell) {
  return static_cast<int>(std::clamp(std::round(extent / cell), 1.0, 2e9));
}

}  // namespace

TileGrid2D Tiles_Of(const GivenOrthoimage& orthoimage) {
  const MapExtent& extent = orthoimage.extent;
  const int columns = Cells_In(extent.east - extent.west, orthoimage.cell);
  const int rows = Cells_In(extent.north - extent.south, orthoimage.cell);
  return {columns, rows, Tiles_In(columns, orthoimage.tile), Tiles_In(rows, orthoimage.tile)};
}

TilePlace Place_Of(const GivenOrthoimage& orthoimage, int column, int row) {
  const TileGrid2D grid = Tiles_Of(orthoimage);
  const int first_col = column * orthoimage.tile, first_row = row * orthoimage.tile;
  return {std::min(orthoimage.tile, grid.columns - first_col),
          std::min(orthoimage.tile, grid.rows - first_row),
          orthoimage.extent.west + first_col * orthoimage.cell,
          orthoimage.extent.south + first_row * orthoimage.cell};
}

std::string Kind_Name(TaskKind kind) {
  return kind == TaskKind::TreeTops ? "tree_tops" : "ortho_tile";
}

}  // namespace sylvomex
