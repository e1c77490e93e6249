// SPDX-License-Identifier: MIT
// Small GeoTIFF rasters, written by GDAL.
#pragma once

#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace sylvomex {

struct TestRaster {
  int columns = 12, rows = 9;
  std::array<double, 6> place{384000, 2, 0, 6676000, 0, -2};
  std::string crs = "EPSG:3067";  // empty: none
  std::string no_data;            // empty: none
  std::string unit;
  std::function<double(int col, int row)> height = [](int col, int row) {
    return 100 + col + 0.25 * row;
  };

  [[nodiscard]] std::string Write(const std::filesystem::path& file) const {
    GDALAllRegister();
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    const GDALDatasetUniquePtr raster(
        driver->Create(file.c_str(), columns, rows, 1, GDT_Float32, nullptr));
    auto transform = place;
    raster->SetGeoTransform(transform.data());
    if (!crs.empty()) {
      OGRSpatialReference system;
      system.SetFromUserInput(crs.c_str());
      raster->SetSpatialRef(&system);
    }
    GDALRasterBand& band = *raster->GetRasterBand(1);
    if (!no_data.empty()) band.SetNoDataValue(std::stod(no_data));
    if (!unit.empty()) band.SetUnitType(unit.c_str());
    std::vector<float> line(static_cast<std::size_t>(columns));
    for (int row = 0; row < rows; ++row) {
      for (int col = 0; col < columns; ++col) {
        line[static_cast<std::size_t>(col)] = static_cast<float>(height(col, row));
      }
      if (band.RasterIO(GF_Write, 0, row, columns, 1, line.data(), columns, 1, GDT_Float32, 0, 0,
                        nullptr) != CE_None) {
        return "";
      }
    }
    return file.string();
  }
};

}  // namespace sylvomex
