// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "bench_inputs.h"
#include "heightmodels/raster_model.h"

namespace sylvomex::bench {

/// A ground model of side x side cells of 1 m from (east, north) on, metres, heights of 160 to 185.
inline RasterModel Relief_Model(double east, double north, int side) {
  RasterModel model;
  model.NCols = model.NRows = side;
  model.OriginX = east;
  model.OriginY = north;
  model.CellSize = 1;
  Dimension_Cells(model);
  for (int row = 0; row < side; ++row) {
    for (int col = 0; col < side; ++col) {
      model.Cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(side) +
                  static_cast<std::size_t>(col)] =
          static_cast<float>(160.0 + Value_Noise(41, col, row, 6) * 25.0 / 255.0);
    }
  }
  return model;
}

}  // namespace sylvomex::bench
