// SPDX-License-Identifier: MIT
#include "region/mapped_model.h"

#include <algorithm>
#include <cstring>

#include "interchange/failures.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

RasterModel Header_Of(const DriveMap& drives, const std::string& header) try {
  RasterModel model;
  Read_Raster_Header(drives.Locate(header), model);
  Dimension_Cells(model);  // the cells cost nothing as long as none is written
  if (!(model.CellSize > 0)) throw Refused(header + ": the cells have no size");
  return model;
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

MappedFile Cells_Of(const DriveMap& drives, const RasterModel& model) try {
  return MappedFile(drives.Locate(model.CellFile.Trimmed()));
} catch (const RunTimeError& error) {
  throw Refused(error.what());
}

}  // namespace

MappedModel::MappedModel(const DriveMap& drives, const std::string& header)
    : model_(Header_Of(drives, header)), cells_(Cells_Of(drives, model_)) {
  const std::uint64_t needed = static_cast<std::uint64_t>(model_.columns) *
                               static_cast<std::uint64_t>(model_.rows) * sizeof(float);
  if (cells_.Bytes().size() >= needed) return;
  throw Refused(cells_.File().name + ": it has " + std::to_string(cells_.Bytes().size()) +
                " bytes, " + std::to_string(needed) + " by its header " + header);
}

std::optional<double> MappedModel::Cell(std::uint64_t col, std::uint64_t row) const {
  const auto columns = static_cast<std::uint64_t>(model_.columns);
  if (col >= columns || row >= static_cast<std::uint64_t>(model_.rows)) return std::nullopt;
  const std::uint64_t place = (row * columns + col) * sizeof(float);
  const std::span<const std::uint8_t> bytes = cells_.Bytes();
  if (place + sizeof(float) > bytes.size()) return std::nullopt;
  float height = 0;
  std::memcpy(&height, bytes.data() + place, sizeof height);
  if (Is_No_Data(height)) return std::nullopt;
  return height;
}

std::optional<double> MappedModel::Height(double X, double Y) const {
  return Cell(Raster_Column(model_, X), Raster_Row(model_, Y));
}

std::optional<HeightSpan> MappedModel::Span(const MapExtent& extent) const {
  const RasterWindow window =
      Window_Of(model_, extent.west, extent.south, extent.east, extent.north);
  HeightSpan span{1e30, 0, -1e30};
  std::size_t count = 0;
  for (std::int64_t row = window.first_row; row <= window.last_row; ++row) {
    for (std::int64_t col = window.first_col; col <= window.last_col; ++col) {
      const auto height = Cell(static_cast<std::uint64_t>(col), static_cast<std::uint64_t>(row));
      if (!height) continue;
      span.low = std::min(span.low, *height);
      span.high = std::max(span.high, *height);
      span.mean += *height;
      ++count;
    }
  }
  if (count == 0) return std::nullopt;
  span.mean /= static_cast<double>(count);
  return span;
}

std::uint64_t MappedModel::Window_Bytes(const MapExtent& extent) const {
  constexpr std::uint64_t kHugePages = 4U << 20U;  // at both ends of the rows
  const RasterWindow window =
      Window_Of(model_, extent.west, extent.south, extent.east, extent.north);
  if (window.Is_Empty()) return kHugePages;
  const auto rows = static_cast<std::uint64_t>(window.last_row - window.first_row + 1);
  return rows * static_cast<std::uint64_t>(model_.columns) * sizeof(float) + kHugePages;
}

}  // namespace sylvomex
