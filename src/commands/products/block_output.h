// SPDX-License-Identifier: MIT
// A mosaic on its way to a file: cells of three bytes, kept on disk until the operator names it.
#pragma once

#include <memory>

#include "platform/unnamed_file.h"
#include "products/ortho_block.h"
#include "state/workspace.h"

namespace sylvomex {

class BlockOutput {
 public:
  /// Room for the cells of a grid, all black. RunTimeErrors of UnnamedFile.
  BlockOutput(const Workspace& w, const OrthoGrid& grid);

  /// Writes a row of tiles: `rows` rows of the whole width from first_row on.
  void Write_Band(std::int32_t first_row, std::span<const std::uint8_t> cells) const;

  /// Writes one tile.
  void Write_Tile(const OrthoTile& tile, std::span<const std::uint8_t> cells) const;

  /// Puts the cells in the place of a file. RunTimeErrors of UnnamedFile.
  void Replace(const FilePath& file) const { file_->Replace(file); }

 private:
  [[nodiscard]] std::uint64_t Offset(std::int32_t col, std::int32_t row) const;

  std::int32_t columns_;
  std::unique_ptr<UnnamedFile> file_;
};

}  // namespace sylvomex
