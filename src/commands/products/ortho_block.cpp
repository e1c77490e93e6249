// SPDX-License-Identifier: MIT
#include "commands/products/ortho_block.h"

#include <algorithm>
#include <vector>

#include "closedlib/parallel_tasks.h"
#include "commands/products/block_output.h"
#include "commands/products/ortho_inputs.h"
#include "platform/memory_room.h"
#include "platform/number_text.h"
#include "platform/sound_reads.h"
#include "services/progress.h"
#include "state/camera_access.h"

namespace sylvomex {
namespace {

constexpr int kPixelBytes = 3;  // of a source, whatever its ColorFlag

/// The images as they were when the command began: events may change the block meanwhile.
struct BlockImages {
  std::vector<ImageRecord> records;
  std::vector<Camera> cameras;
};

BlockImages Take_Images(Workspace& w) {
  BlockImages images;
  for (int k = 0; k < w.ImageCount; ++k) {
    Build_Rotation_Matrix(w, k);
    images.records.push_back(w.ImageBlock(k));
    images.cameras.push_back(Camera_Of(w, k));
  }
  return images;
}

std::vector<OrthoSource> Open_Sources(Workspace& w, const BlockImages& images) {
  std::vector<OrthoSource> sources;
  for (std::size_t k = 0; k < images.records.size(); ++k) {
    const ImageRecord& record = images.records[k];
    const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
    sources.push_back(Make_Ortho_Source(record, images.cameras[k], file.Bytes()));
    sources.back().pixel_bytes = kPixelBytes;
  }
  return sources;
}

void Require_Memory_For_Band(const OrthoGrid& grid) {
  const std::int32_t rows = Tile_At(grid, 0, 0).rows;
  Require_Memory(
      static_cast<std::uint64_t>(grid.columns) * static_cast<std::uint64_t>(rows) * kPixelBytes,
      "a band of " + Plain_Text(grid.columns) + " x " + Plain_Text(rows) + " cells");
}

/// A row of tiles.
void Fill_Band(Workspace& w, const BlockImages& images, const OrthoGrid& grid,
               std::int32_t tile_row, std::vector<std::uint8_t>& cells) {
  const std::vector<OrthoSource> sources = Open_Sources(w, images);
  const OrthoHeights heights = Heights_As_Told(w.RasterDemLoaded ? &w.RasterDem : nullptr);
  std::fill(cells.begin(), cells.end(), std::uint8_t{0});
  Run_Tasks(Tile_Count(grid.columns), 0, [&](int tile_col) {
    const OrthoTile tile = Tile_At(grid, tile_col, tile_row);
    const auto serving = Serving_Camera(images.cameras, grid, tile);
    if (!serving) return;
    Fill_Tile(grid, sources[*serving], heights, tile,
              cells.data() + static_cast<std::size_t>(tile.first_col) * kPixelBytes,
              static_cast<std::size_t>(grid.columns));
  });
  Require_Sound_Reads();
}

/// The progress of a row of tiles, tile after tile.
void Report_Band(Progress& progress, const OrthoGrid& grid, std::int32_t tile_row) {
  const auto columns = static_cast<double>(grid.columns), rows = static_cast<double>(grid.rows);
  for (std::int32_t tile_col = 0; tile_col < Tile_Count(grid.columns); ++tile_col) {
    const OrthoTile tile = Tile_At(grid, tile_col, tile_row);
    const double done =
        columns * tile.first_row + static_cast<double>(tile.rows) * (tile.first_col + tile.columns);
    progress.Report(Format(done / (columns * rows) * 100, "0.00") + " %");
  }
}

}  // namespace

void OrthoBlock(Workspace& w) {
  const auto extent = Ask_Extent(w, BadAnswer::EndsCommand);
  if (!extent) return;
  const OrthoGrid grid = Grid_Of(w, *extent);
  Show_Size(w, grid);
  const BlockImages images = Take_Images(w);
  const BlockOutput output(w, grid);
  Require_Memory_For_Band(grid);
  Progress progress(w, w.Form1.Label2);
  std::vector<std::uint8_t> cells;
  WorkMeter meter(Tile_Count(grid.rows));
  for (std::int32_t tile_row = 0; tile_row < Tile_Count(grid.rows); ++tile_row) {
    const OrthoTile tile = Tile_At(grid, 0, tile_row);
    cells.resize(static_cast<std::size_t>(grid.columns) * static_cast<std::size_t>(tile.rows) *
                 kPixelBytes);
    Fill_Band(w, images, grid, tile_row, cells);
    output.Write_Band(tile.first_row, cells);
    Report_Band(progress, grid, tile_row);
    meter.Step();
  }
  const auto file = Ask_Result_Name(w);
  if (!file) return;
  output.Replace(*file);
  Say_Written(w, file->name);
}

}  // namespace sylvomex
