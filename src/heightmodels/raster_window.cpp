// SPDX-License-Identifier: MIT
#include "heightmodels/raster_window.h"

#include <algorithm>

#include "platform/files.h"

namespace sylvomex {
namespace {

// One line more on each side than the positions need, so that no rounding of a lookup leaves them.
std::int64_t First_Line(double lines) {
  return static_cast<std::int64_t>(std::clamp(std::floor(lines) - 1, 0.0, 1e9));
}

std::int64_t Last_Line(double lines, std::int32_t count) {
  return static_cast<std::int64_t>(std::clamp(std::ceil(lines) + 1, -1.0, count - 1.0));
}

}  // namespace

RasterWindow Window_Of(const RasterModel& model, double west, double south, double east,
                       double north) {
  const double cell = model.CellSize;
  const bool is_usable = cell > 0 && std::isfinite(west) && std::isfinite(east) &&
                         std::isfinite(south) && std::isfinite(north);
  if (!is_usable) return {};
  return {First_Line((west - model.OriginX) / cell),
          Last_Line((east - model.OriginX) / cell, model.columns),
          First_Line((south - model.OriginY) / cell),
          Last_Line((north - model.OriginY) / cell, model.rows)};
}

void Read_Cells_Within(const FilePath& cell_file, const RasterWindow& window, RasterModel& model) {
  const PositionalFile file(cell_file);
  if (window.Is_Empty()) return;
  const auto count = static_cast<std::size_t>(window.last_col - window.first_col + 1);
  for (std::int64_t row = window.first_row; row <= window.last_row; ++row) {
    const std::int64_t place = row * model.columns + window.first_col;
    const std::span<float> cells =
        model.Cells.All().subspan(static_cast<std::size_t>(place), count);
    auto* bytes = reinterpret_cast<std::uint8_t*>(cells.data());
    const std::size_t got =
        file.Read_At(place * std::int64_t{sizeof(float)}, {bytes, cells.size_bytes()});
    if (got % sizeof(float) != 0) cells[got / sizeof(float)] = 0;
  }
}

}  // namespace sylvomex
