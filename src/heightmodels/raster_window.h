// SPDX-License-Identifier: MIT
#pragma once

#include "heightmodels/raster_model.h"

namespace sylvomex {

/// Columns and rows of a model, the first and last included; empty where last lies below first.
struct RasterWindow {
  std::int64_t first_col = 0, last_col = -1;
  std::int64_t first_row = 0, last_row = -1;

  [[nodiscard]] bool Is_Empty() const { return last_col < first_col || last_row < first_row; }
};

/// The cells that lookups at positions from west to east and south to north can reach, limited to
/// the model, metres.
RasterWindow Window_Of(const RasterModel& model, double west, double south, double east,
                       double north);

/// Reads these cells into a dimensioned model; all others stay as they are, so that a lookup inside
/// the window answers as if the whole model had been read. A file that is too short leaves the rest
/// zero. RunTimeErrors of the file layer.
void Read_Cells_Within(const FilePath& cell_file, const RasterWindow& window, RasterModel& model);

}  // namespace sylvomex
