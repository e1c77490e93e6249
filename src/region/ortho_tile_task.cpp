// SPDX-License-Identifier: MIT
#include <cpl_string.h>
#include <gdal_priv.h>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "platform/sound_reads.h"
#include "platform/zeroed_array.h"
#include "products/ortho_image.h"
#include "region/task_files.h"
#include "region/task_work.h"

namespace sylvomex {
namespace {

/// A computed tile: its first row is the southernmost.
struct TilePixels {
  TilePlace place;
  double cell = 0;
  int bands = 1;
  ZeroedArray<std::uint8_t> bytes;
};

/// The kernel reads ground and pixel of a cell one cell further east and north than the grid says;
/// the grid that is moved by half a cell has them in the middle of the tile's cells.
OrthoGrid Grid_Of(const TilePixels& tile) {
  OrthoGrid grid;
  grid.X0 = tile.place.west - tile.cell / 2;
  grid.Y0 = tile.place.south - tile.cell / 2;
  grid.pixel = tile.cell;
  grid.columns = tile.place.columns;
  grid.rows = tile.place.rows;
  return grid;
}

MapExtent Extent_Of(const TilePixels& tile) {
  return {tile.place.west, tile.place.south, tile.place.west + tile.place.columns * tile.cell,
          tile.place.south + tile.place.rows * tile.cell};
}

[[noreturn]] void Fail(const std::filesystem::path& file) {
  throw FailedOnTheWay(file.string() + ": it cannot be written: " + Gdal_Message("GDAL refuses"));
}

GDALDatasetUniquePtr New_File(const TilePixels& tile, const std::filesystem::path& file) {
  CPLStringList options;
  options.SetNameValue("TILED", "YES");
  options.SetNameValue("INTERLEAVE", "PIXEL");
  options.SetNameValue("COMPRESS", "DEFLATE");
  options.SetNameValue("ZLEVEL", "1");
  options.SetNameValue("PREDICTOR", "2");
  GDALDatasetUniquePtr made(GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
      file.c_str(), tile.place.columns, tile.place.rows, tile.bands, GDT_Byte, options.List()));
  if (made == nullptr) Fail(file);
  return made;
}

void Write_Tile(TilePixels& tile, const RegionPlan& plan, const std::filesystem::path& file) {
  constexpr GIntBig kCache = 16 << 20;
  Start_Gdal();
  GDALSetCacheMax64(kCache);
  CPLErrorReset();
  GDALDatasetUniquePtr made = New_File(tile, file);
  const MapExtent extent = Extent_Of(tile);
  double place[6] = {extent.west + plan.shift.X,  tile.cell, 0,
                     extent.north + plan.shift.Y, 0,         -tile.cell};
  const OGRSpatialReference system = Coordinate_System(plan.crs);
  made->SetGeoTransform(place);
  made->SetSpatialRef(&system);
  const GSpacing line = GSpacing{tile.place.columns} * tile.bands;
  std::uint8_t* const north = tile.bytes.All().data() + (tile.place.rows - 1) * line;
  const CPLErr written =
      made->RasterIO(GF_Write, 0, 0, tile.place.columns, tile.place.rows, north, tile.place.columns,
                     tile.place.rows, GDT_Byte, tile.bands, nullptr, tile.bands, -line, 1, nullptr);
  if (written != CE_None) Fail(file);
  made.reset();
  if (CPLGetLastErrorType() == CE_Failure) Fail(file);
}

}  // namespace

TaskYield Run_Ortho_Tile(const RegionPlan& plan, const RegionTask& task,
                         const std::filesystem::path& folder, int threads) {
  const ReadScope scope;
  const GivenOrthoimage& ortho = *plan.orthoimage;
  const DriveMap drives(plan.site);
  LapClock clock;
  const RegionImage image =
      Read_Region_Image(drives, plan.headers[static_cast<std::size_t>(task.tile.image)]);
  const MappedRaw raw(drives, image.record);
  TilePixels tile{Place_Of(ortho, task.tile.column, task.tile.row),
                  ortho.cell,
                  image.record.ColorFlag == 1 ? 3 : 1,
                  {}};
  PartialModel dem(drives, plan.dem);
  dem.Read(Extent_Of(tile));
  TaskYield yield;
  yield.seconds.read = clock.Lap();
  const OrthoGrid grid = Grid_Of(tile);
  tile.bytes = ZeroedArray<std::uint8_t>(grid.Cells() * static_cast<std::uint64_t>(tile.bands));
  const OrthoSource source = Make_Ortho_Source(image.record, Raw_Camera(image), raw.file.Bytes());
  LastPixel last{};
  Fill_Ortho_Columns(grid, source, {&dem.Model(), ortho.elsewhere, ortho.lowest_ground}, 0,
                     grid.columns, tile.bytes.All(), last, threads);
  Require_Sound_Reads();
  yield.seconds.compute = clock.Lap();
  Write_Tile(tile, plan, folder / "tile.tif");
  Write_Task_File(folder / "log.txt", "tile in column " + std::to_string(task.tile.column) +
                                          ", row " + std::to_string(task.tile.row) + "\nimage " +
                                          image.header + "\n");
  yield.figures = {{"cells", static_cast<double>(grid.Cells())}};
  return yield;
}

}  // namespace sylvomex
