// SPDX-License-Identifier: MIT
#include "commands/products/ortho_block_2.h"

#include <algorithm>
#include <new>
#include <optional>
#include <vector>

#include "commands/imageblock/block_maintenance.h"
#include "commands/imageblock/image_set.h"
#include "commands/products/block_output.h"
#include "commands/products/ortho_inputs.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/replacing_file.h"
#include "platform/sound_reads.h"
#include "services/progress.h"
#include "solver/point_in_image.h"
#include "state/camera_access.h"
#include "state/cause.h"

namespace sylvomex {
namespace {

constexpr const char* kCameraTable = "c:\\data\\cam_data_G6_j.csv";
constexpr const char* kHeaderFolder = "c:\\data\\G6\\Imafiles\\";
constexpr int kTilesAcross = 130, kTilesUp = 162;
constexpr double kLowestRemembered = 120;  // metres
constexpr std::int32_t kNoCamera = -1;

struct TileGrid {
  Table<Table<std::int32_t, 0, kTilesUp - 1>, 0, kTilesAcross - 1> camera;  // place in the table
  double elevation = OrthoHeights().elsewhere;  // the last one above 120 m
};

std::vector<TableCamera> Read_Table(const Workspace& w) {
  CameraTableReader reader(w.Drives.Locate(kCameraTable));
  std::vector<TableCamera> table;
  while (const auto camera = reader.Next()) table.push_back(*camera);
  return table;
}

std::int32_t First_That_Sees(const std::vector<TableCamera>& table, const Point3D& place) {
  const auto found = std::find_if(table.begin(), table.end(), [&](const TableCamera& camera) {
    return Sees_Point_On_Own_Frame(camera, place);
  });
  return found == table.end() ? kNoCamera : static_cast<std::int32_t>(found - table.begin());
}

Point3D Middle_Of_Tile(const OrthoGrid& grid, const OrthoTile& tile) {
  return {grid.X0 + (tile.first_col + tile.columns / 2.0) * grid.pixel,
          grid.Y0 + (tile.first_row + tile.rows / 2.0) * grid.pixel, 0};
}

template <class Visit>
void For_Each_Tile(const OrthoGrid& grid, Visit&& visit) {
  for (std::int32_t row = 0; row < Tile_Count(grid.rows); ++row) {
    for (std::int32_t col = 0; col < Tile_Count(grid.columns); ++col) visit(col, row);
  }
}

TileGrid Prepare_Tiles(const Workspace& w, const OrthoGrid& grid,
                       const std::vector<TableCamera>& table) {
  TileGrid tiles;
  WorkMeter meter(static_cast<double>(Tile_Count(grid.rows)) * Tile_Count(grid.columns));
  For_Each_Tile(grid, [&](std::int32_t col, std::int32_t row) {
    Point3D middle = Middle_Of_Tile(grid, Tile_At(grid, col, row));
    middle.Z = Get_Raster_Elevation(w, middle.X, middle.Y);
    if (middle.Z > kLowestRemembered) tiles.elevation = middle.Z;
    middle.Z = OrthoHeights{nullptr, tiles.elevation}.Replaced(middle.Z);
    tiles.camera(col)(row) = First_That_Sees(table, middle);
    meter.Step();
  });
  return tiles;
}

/// The header of a camera's image: the text file that is named by the image is the header itself,
/// or the point-in-image file of a search, which names it.
FilePath Header_File(const Workspace& w, const TableCamera& camera) {
  FilePath named = w.Drives.Locate(kHeaderFolder + Point_In_Image_Name(camera));
  ListReader text(named);
  text.Read_Int32();
  const std::string second = text.Read_Text_To_Comma();
  try {
    Parse_Double(second);
    return named;
  } catch (const RunTimeError&) {
    return w.Drives.Locate(second);
  }
}

/// Loads one image in place of all others and shows it around the solution.
void Load_Only(Workspace& w, const FilePath& header) {
  Remove_All_Images(w);
  w.SolutionValid = true;
  Add_Image_By_Name(w, header);
}

/// The tiles that a camera serves, from its image, which is the only one of the block.
void Fill_Tiles(Workspace& w, const OrthoGrid& grid, const TileGrid& tiles, std::int32_t camera,
                const BlockOutput& output) {
  const ImageRecord record = w.ImageBlock(w.ImageCount - 1);
  const MappedFile& file = w.RawFiles.Open(w.Drives.Locate(record.RawFileName.Trimmed()));
  const OrthoSource source = Make_Ortho_Source(record, Make_Camera(record), file.Bytes());
  const OrthoHeights heights{w.RasterDemLoaded ? &w.RasterDem : nullptr, tiles.elevation};
  For_Each_Tile(grid, [&](std::int32_t col, std::int32_t row) {
    if (tiles.camera(col)(row) != camera) return;
    const OrthoTile tile = Tile_At(grid, col, row);
    std::vector<std::uint8_t> cells(static_cast<std::size_t>(tile.columns) *
                                    static_cast<std::size_t>(tile.rows) * 3);
    Fill_Tile(grid, source, heights, tile, cells.data(), static_cast<std::size_t>(tile.columns));
    Require_Sound_Reads();
    output.Write_Tile(tile, cells);
    Look_At_Work();
  });
}

bool Serves_Any(const OrthoGrid& grid, const TileGrid& tiles, std::int32_t camera) {
  bool serves = false;
  For_Each_Tile(grid, [&](std::int32_t col, std::int32_t row) {
    serves = serves || tiles.camera(col)(row) == camera;
  });
  return serves;
}

void Fill_Mosaic(Workspace& w, const OrthoGrid& grid, const std::vector<TableCamera>& table,
                 const BlockOutput& output) {
  const TileGrid tiles = Prepare_Tiles(w, grid, table);
  Progress progress(w, w.Form1.Label2);
  const auto count = static_cast<std::int32_t>(table.size());
  WorkMeter meter(count);
  for (std::int32_t camera = 0; camera < count; ++camera) {
    if (Serves_Any(grid, tiles, camera)) {
      const TableCamera& line = table[static_cast<std::size_t>(camera)];
      Named_In(w, kCameraTable + (", line " + Plain_Text(std::int32_t{line.line})),
               [&] { Load_Only(w, Header_File(w, line)); });
      Fill_Tiles(w, grid, tiles, camera, output);
    }
    progress.Report(Format((camera + 1.0) / count * 100, "0.00") + " %");
    meter.Step();
  }
}

/// A mosaic that was never begun gives an empty file.
void Ask_Name_And_Write(Workspace& w, const std::optional<BlockOutput>& output) {
  const auto file = Ask_Result_Name(w);
  if (!file) return;
  try {
    output ? output->Replace(*file) : Replace_Whole_File(*file, {});
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    return Say_Too_Wide(w, error);
  }
  Say_Written(w, file->name);
}

}  // namespace

void Create_an_Ortho_Block_2(Workspace& w) {
  if (!w.RasterDemLoaded) {
    w.screen->Message_Box("Read height model first!");
    return;
  }
  std::optional<BlockOutput> output;
  try {
    Remove_All_Images(w);
    const std::vector<TableCamera> table = Read_Table(w);
    const auto extent = Ask_Extent(w, BadAnswer::IsTold);
    if (!extent) return;
    const OrthoGrid grid = Grid_Of(w, *extent);
    Show_Size(w, grid);
    output.emplace(w, grid);
    Fill_Mosaic(w, grid, table, *output);
  } catch (const RunTimeError& error) {
    Require_Sound_Reads();
    Say_Too_Wide(w, error);
  } catch (const std::bad_alloc& error) {
    Say_Too_Wide(w, error);
  }
  Ask_Name_And_Write(w, output);
}

}  // namespace sylvomex
