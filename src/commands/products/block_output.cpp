// SPDX-License-Identifier: MIT
#include "commands/products/block_output.h"

#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr std::uint64_t kCellBytes = 3;
constexpr const char* kScratchFolder = "c:\\data";

std::unique_ptr<UnnamedFile> Scratch_File(const Workspace& w, const OrthoGrid& grid) {
  try {
    return std::make_unique<UnnamedFile>(w.Drives.Locate(kScratchFolder),
                                         grid.Cells() * kCellBytes);
  } catch (const RunTimeError& error) {
    throw error.At(
        "a mosaic of " + Plain_Text(grid.columns) + " x " + Plain_Text(grid.rows) + " cells",
        error.Native_Path());
  }
}

}  // namespace

BlockOutput::BlockOutput(const Workspace& w, const OrthoGrid& grid)
    : columns_(grid.columns), file_(Scratch_File(w, grid)) {}

std::uint64_t BlockOutput::Offset(std::int32_t col, std::int32_t row) const {
  return (static_cast<std::uint64_t>(row) * static_cast<std::uint64_t>(columns_) +
          static_cast<std::uint64_t>(col)) *
         kCellBytes;
}

void BlockOutput::Write_Band(std::int32_t first_row, std::span<const std::uint8_t> cells) const {
  file_->Write_At(Offset(0, first_row), cells);
}

void BlockOutput::Write_Tile(const OrthoTile& tile, std::span<const std::uint8_t> cells) const {
  const std::size_t row_bytes = static_cast<std::size_t>(tile.columns) * kCellBytes;
  for (std::int32_t row = 0; row < tile.rows; ++row) {
    file_->Write_At(Offset(tile.first_col, tile.first_row + row),
                    cells.subspan(static_cast<std::size_t>(row) * row_bytes, row_bytes));
  }
}

}  // namespace sylvomex
