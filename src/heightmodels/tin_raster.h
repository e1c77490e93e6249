// SPDX-License-Identifier: MIT
// Rasters of 1 m cells from the triangles of a model, one triangle after the other.
#pragma once

#include <cstdint>
#include <vector>

#include "heightmodels/tin_model.h"
#include "platform/zeroed_array.h"

namespace sylvomex {

/// Largest integer not greater than the value.
double MYFUNC_FLOOR(double value);

/// Heights and grey values by cell, row by row from the south; cells that no triangle reached
/// are 0. Column = X - origin_X rounded, row = Y - origin_Y rounded up.
struct TinRaster {
  double origin_X = 0, origin_Y = 0;
  std::int32_t columns = 0, rows = 0;
  ZeroedArray<float> heights;  // metres
  std::vector<std::uint8_t> greys;
  std::int64_t cells_written = 0;
};

/// A raster over the tile bounds of the model. RunTimeError(OutOfMemory) naming the size when
/// memory is insufficient.
TinRaster Make_Tin_Raster(const TinModel& model);

/// Writes the cells whose lattice points (a little west and south of the whole metres) lie in
/// the triangle. The grey value is 255 - (500 - Z); a height outside 245 to 500 m is a
/// RunTimeError(Overflow), a cell outside the raster a RunTimeError(SubscriptOutOfRange).
void Rasterize_Triangle(const TinTriangle& triangle, TinRaster& raster);

}  // namespace sylvomex
