// SPDX-License-Identifier: MIT
// Rasters of any format that GDAL reads, brought to a grid of the site's coordinate system.
#pragma once

#include <gdal_priv.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "interchange/site.h"

namespace sylvomex {

/// A north-up grid of square cells, world metres; rows count from the north.
struct CellGrid {
  double west = 0, north = 0;
  double cell = 0;
  std::int64_t columns = 0, rows = 0;

  [[nodiscard]] MapExtent Extent() const {
    return {west, north - cell * static_cast<double>(rows),
            west + cell * static_cast<double>(columns), north};
  }
};

inline constexpr double kNoHeight = -9999;

class RasterSource {
 public:
  /// Opens a raster. Refused, naming the file, for what GDAL cannot read, a raster without a
  /// coordinate system or without a position, and heights that are no plain numbers.
  /// site: the site's coordinate system.
  RasterSource(const std::filesystem::path& file, const std::string& site);

  [[nodiscard]] const std::string& Name() const { return name_; }

  /// The raster's own grid, when it is one of the site's system: such a raster is copied.
  [[nodiscard]] const std::optional<CellGrid>& Grid() const { return grid_; }

  /// Where it lies in the site's system.
  [[nodiscard]] const MapExtent& Extent() const { return extent_; }

  /// The side of its cells, metres; of cells that are not square the shorter one.
  [[nodiscard]] double Cell_Size() const { return cell_; }

  /// Prepares reading on a grid: cell for cell when its own grid fits into it, else resampled
  /// bilinearly. Returns whether it is resampled.
  bool Place_On(const CellGrid& grid);

  /// Puts the heights of one row of the grid (from the north) over those in `row`, where there are
  /// any. Heights in feet become metres. Refused when the file cannot be read to its end.
  void Read_Row(std::int64_t grid_row, std::span<double> row);

  [[nodiscard]] bool In_Feet() const { return metres_ != 1; }
  [[nodiscard]] bool Height_Unit_Is_Open() const { return height_unit_is_open_; }

 private:
  void Find_Place(const OGRSpatialReference& system, const std::string& site);
  void Warp_To(const CellGrid& grid);
  void Read_Strip(GDALDataset& dataset, int row);

  std::string name_;
  GDALDatasetUniquePtr source_;
  GDALDatasetUniquePtr warped_;
  std::string source_system_, site_system_;  // WKT without heights
  std::optional<CellGrid> grid_;
  MapExtent extent_;
  double cell_ = 0;
  bool height_unit_is_open_ = false;
  double metres_ = 1;                              // of a unit of height
  std::int64_t first_column_ = 0, first_row_ = 0;  // of the raster in the grid
  int strip_first_ = 0, strip_rows_ = 0;           // rows at hand, own counting
  std::vector<double> strip_heights_;
  std::vector<std::uint8_t> strip_valid_;
};

}  // namespace sylvomex
