// SPDX-License-Identifier: MIT
#include "products/ortho_block.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "products/ortho_columns.h"

namespace sylvomex {
namespace {

constexpr double kFlatGround = 160;  // metres
constexpr double kFilmReach = 0.09;  // metres from the principal point
constexpr std::size_t kCellBytes = 3;

void Copy_Pixel(const OrthoSource& source, double position, std::uint8_t* cell) {
  if (!(position >= 0)) return;
  if (position + source.pixel_bytes > static_cast<double>(source.bytes.size())) return;
  const std::uint8_t* pixel = source.bytes.data() + static_cast<std::size_t>(position);
  const std::size_t step = source.pixel_bytes == 1 ? 0 : 1;
  for (std::size_t k = 0; k < kCellBytes; ++k) cell[k] = pixel[k * step];
}

}  // namespace

OrthoTile Tile_At(const OrthoGrid& grid, std::int32_t tile_col, std::int32_t tile_row) {
  const std::int32_t col = tile_col * kTileCells, row = tile_row * kTileCells;
  return {col, row, std::min(kTileCells, grid.columns - col),
          std::min(kTileCells, grid.rows - row)};
}

std::optional<std::size_t> Serving_Camera(std::span<const Camera> cameras, const OrthoGrid& grid,
                                          const OrthoTile& tile) {
  const Point3D place{grid.X0 + tile.first_col * grid.pixel + grid.pixel / 2,
                      grid.Y0 + tile.first_row * grid.pixel + grid.pixel / 2, kFlatGround};
  for (std::size_t k = 0; k < cameras.size(); ++k) {
    const auto [x, y] = Film_Of_Point(cameras[k], place);
    if (std::abs(x) < kFilmReach && std::abs(y) < kFilmReach) return k;
  }
  return std::nullopt;
}

void Fill_Tile(const OrthoGrid& grid, const OrthoSource& source, const OrthoHeights& heights,
               const OrthoTile& tile, std::uint8_t* cells, std::size_t stride) {
  const OrthoColumns columns(grid, source, heights, tile.first_col, tile.columns, 0);
  const bool quick = source.pixel_bytes == 3 && source.bytes.size() <= kMostOffsetBytes;
  RowHeights scratch;
  std::vector<std::uint32_t> offsets(columns.Count());
  std::vector<double> positions(columns.Count());
  for (std::int32_t row = 0; row < tile.rows; ++row) {
    std::uint8_t* first = cells + static_cast<std::size_t>(row) * stride * kCellBytes;
    const std::int32_t grid_row = tile.first_row + row;
    if (quick) {
      const RowCells found = columns.Find_Offsets(grid_row, scratch, 0, offsets);
      if (!found.any_black && !found.any_other) {
        Copy_Pixels(source, offsets, first);
        continue;
      }
    }
    columns.Find_Positions(grid_row, scratch, positions);
    for (std::size_t k = 0; k < positions.size(); ++k) {
      Copy_Pixel(source, positions[k], first + k * kCellBytes);
    }
  }
}

}  // namespace sylvomex
