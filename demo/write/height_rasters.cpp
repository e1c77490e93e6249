// SPDX-License-Identifier: MIT
#include "demo/write/height_rasters.h"

#include <bit>
#include <cstring>

#include "demo/write/exact_text.h"
#include "platform/files.h"

namespace sylvomex::demo {
namespace {

constexpr double kMargin = 50;
constexpr double kNoMeaning = -99;

/// What a raster covers: its south-west corner from that of the forest and its side, metres.
struct Square {
  double x = 0, y = 0, side = 0, cell = 0;
};

constexpr Square kForestSquare{-kMargin, -kMargin, kForestSide + 2 * kMargin, 0.5};
constexpr Square kHeathSquare{-30, -150, 360, 1};

template <class HeightAt>
HeightRaster Make_Raster(const Square& square, const char* cell_file, HeightAt&& height_at) {
  HeightRaster raster;
  raster.side = static_cast<int>(square.side / square.cell);
  raster.cell = square.cell;
  raster.OriginX = kForestWest + square.x + square.cell / 2;
  raster.OriginY = kForestSouth + square.y + square.cell;
  raster.cell_file = cell_file;
  for (int row = 0; row < raster.side; ++row) {
    for (int col = 0; col < raster.side; ++col) {
      raster.cells.push_back(static_cast<float>(height_at(
          raster.OriginX + col * raster.cell, raster.OriginY + (row - 0.5) * raster.cell)));
    }
  }
  return raster;
}

}  // namespace

HeightRaster Make_Ground_Raster(const Scene& scene) {
  return Make_Raster(kForestSquare, "c:\\data\\demo\\dem.bin",
                     [&](double X, double Y) { return Ground_Height(scene, X, Y); });
}

HeightRaster Make_Heath_Raster(const Scene& scene) {
  return Make_Raster(kHeathSquare, "c:\\data\\demo\\heath.bin",
                     [&](double X, double Y) { return Ground_Height(scene, X, Y); });
}

HeightRaster Make_Canopy_Raster(const Scene& scene) {
  return Make_Raster(kForestSquare, "c:\\data\\demo\\chm.bin",
                     [&](double X, double Y) { return Canopy_Height(scene, X, Y); });
}

void Write_Raster(const HeightRaster& raster, const std::string& header_name,
                  const DriveMap& drives) {
  static_assert(std::endian::native == std::endian::little, "cell files are little-endian");
  const auto side = static_cast<double>(raster.side);
  std::string header;
  for (const double value : {side, side, raster.OriginX, raster.OriginY, raster.cell, kNoMeaning}) {
    header += Exact_Text(value) + "\n";
  }
  header += '"' + raster.cell_file + "\"\n";
  std::string cells(raster.cells.size() * sizeof(float), '\0');
  std::memcpy(cells.data(), raster.cells.data(), cells.size());
  Write_Whole_File(drives.Locate(raster.cell_file), cells);
  Write_Whole_File(drives.Locate(header_name), header);
}

}  // namespace sylvomex::demo
