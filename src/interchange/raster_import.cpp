// SPDX-License-Identifier: MIT
#include "interchange/raster_import.h"

#include <algorithm>
#include <cmath>

#include "interchange/failures.h"
#include "interchange/output_file.h"
#include "interchange/raster_mosaic.h"
#include "interchange/site.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

/// The header of a model on a grid: X of the centre of column 0, Y of the north edge of row 0, the
/// southernmost, since a lookup counts a row from there to the south.
std::string Header_Text(const CellGrid& grid, const Site& site, const std::string& cell_file) {
  const MapExtent world = grid.Extent();
  const Point3D origin = site.Working({world.west + grid.cell / 2, world.south + grid.cell, 0});
  std::string text;
  for (const double value : {static_cast<double>(grid.columns), static_cast<double>(grid.rows),
                             origin.X, origin.Y, grid.cell, kNoHeight}) {
    text += Plain_Text(value) + "\n";
  }
  return text + cell_file + "\n";
}

/// Writes the rows from the south; gives the number of cells without a height.
std::uint64_t Write_Cells(RasterMosaic& mosaic, OutputFile& file, const ToldShare& told) {
  const CellGrid& grid = mosaic.Grid();
  std::vector<double> heights(static_cast<std::size_t>(grid.columns));
  std::vector<float> cells(heights.size());
  const std::uint64_t row_bytes = cells.size() * sizeof(float);
  std::uint64_t no_data = 0;
  for (std::int64_t row = 0; row < grid.rows; ++row) {
    mosaic.Read_Row(row, heights);
    no_data += static_cast<std::uint64_t>(std::count(heights.begin(), heights.end(), kNoHeight));
    std::transform(heights.begin(), heights.end(), cells.begin(),
                   [](double height) { return static_cast<float>(height); });
    file.Write_At(static_cast<std::uint64_t>(grid.rows - 1 - row) * row_bytes,
                  {reinterpret_cast<const std::uint8_t*>(cells.data()), row_bytes});
    Tell_Share(told, static_cast<double>(row + 1), static_cast<double>(grid.rows));
  }
  return no_data;
}

}  // namespace

RasterReport Import_Raster(ImportTransaction& transaction,
                           const std::vector<std::filesystem::path>& files,
                           const std::string& model, const ToldShare& told) {
  Site& site = transaction.TheSite();
  ImportEntry entry;
  entry.kind = model;
  entry.files = Source_Files(files);
  RasterMosaic mosaic(files, site.crs);
  const CellGrid& grid = mosaic.Grid();
  Take_Extent(site, grid.Extent(), files.front().string());
  RasterReport report{grid.columns, grid.rows, grid.cell, 0, mosaic.Notes()};
  const DriveMap drives = site.Drives();
  const std::string name = "c:\\data\\models\\" + model;
  const FilePath cell_file = drives.Locate(name + ".bin");
  OutputFile cells(transaction.New_File(cell_file.native), cell_file.native.string());
  report.no_data = Write_Cells(mosaic, cells, told);
  cells.Close();
  transaction.Write(drives.Locate(name + ".hdr").native, Header_Text(grid, site, name + ".bin"));
  entry.settings["cell_size"] = Plain_Text(grid.cell);
  transaction.Commit(entry);
  return report;
}

}  // namespace sylvomex
