// SPDX-License-Identifier: MIT
// The raster height models of the site, with cells of 0.5 m over the forest and 50 m around it:
// the ground ("dem") and the surface of the canopy ("chm"); and with cells of 1 m the ground of the
// heath south of it ("heath"). All hold elevations, in metres above sea level: the canopy model is
// not a height above ground.
//
// A lookup takes the nearest column and the next row to the north: column c covers X from
// OriginX + (c - 1/2) cells to OriginX + (c + 1/2) cells, row r covers Y from OriginY + (r - 1)
// cells (exclusive) to OriginY + r cells (inclusive). Each cell holds the height at the centre
// of the area that it covers.
#pragma once

#include <string>
#include <vector>

#include "demo/scene/scene.h"
#include "platform/drive_map.h"

namespace sylvomex::demo {

struct HeightRaster {
  int side = 0;              // columns, and rows
  double OriginX = 0;        // X of the centre of column 0, metres
  double OriginY = 0;        // Y of row 0 by the rule above
  double cell = 0;           // metres
  std::string cell_file;     // drive name
  std::vector<float> cells;  // row by row from the south
};

HeightRaster Make_Ground_Raster(const Scene& scene);
HeightRaster Make_Heath_Raster(const Scene& scene);
HeightRaster Make_Canopy_Raster(const Scene& scene);

/// Writes header_name with the seven values of a raster header, and the cell file.
void Write_Raster(const HeightRaster& raster, const std::string& header_name,
                  const DriveMap& drives);

}  // namespace sylvomex::demo
