// SPDX-License-Identifier: MIT
// The input is the header of a raster height model, a zero byte, and its cell file. Headers
// may ask for 4 GB of cells that are never touched: run with -malloc_limit_mb=8192.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "heightmodels/raster_model.h"
#include "memory_file.h"
#include "platform/run_time_error.h"

namespace {

/// Lookups at the corners, beyond them, and at NaN and infinity.
void Look_Around(const sylvomex::RasterModel& model) {
  const double far = std::numeric_limits<double>::infinity();
  const double none = std::numeric_limits<double>::quiet_NaN();
  const double width = model.CellSize * model.NCols;
  const double height = model.CellSize * model.NRows;
  for (const double X : {model.OriginX, model.OriginX + width, model.OriginX - width, far, none}) {
    for (const double Y : {model.OriginY, model.OriginY + height, -far, none}) {
      sylvomex::Raster_Height(model, X, Y);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t* const header_end = std::find(data, data + size, std::uint8_t{0});
  const std::uint8_t* const cells = header_end == data + size ? header_end : header_end + 1;
  const sylvomex::MemoryFile header(std::span(data, header_end));
  const sylvomex::MemoryFile cell_file(std::span(cells, data + size));
  sylvomex::RasterModel model;
  try {
    sylvomex::Read_Raster_Header(header.File(), model);
    sylvomex::Dimension_Cells(model);
    sylvomex::Read_Cells(cell_file.File(), model);
  } catch (const sylvomex::RunTimeError&) {
    Look_Around(model);
    return 0;
  }
  Look_Around(model);
  return 0;
}
