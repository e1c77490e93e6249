// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "heightmodels/raster_window.h"
#include "interchange/site.h"
#include "platform/files.h"

namespace sylvomex {

/// Heights of the cells of a rectangle.
struct HeightSpan {
  double low = 0, mean = 0, high = 0;  // metres
};

/// A raster height model on disk, of which a plan looks at parts. Answers as the lookups do, but
/// tells cells outside the model and without data apart.
class MappedModel {
 public:
  /// header: its name on the drives. Refused when header or cells cannot be read, or are too few.
  MappedModel(const DriveMap& drives, const std::string& header);

  /// Nothing outside the model and in a cell without data.
  [[nodiscard]] std::optional<double> Height(double X, double Y) const;

  /// Of the cells that lookups in the rectangle reach; nothing when none has data.
  [[nodiscard]] std::optional<HeightSpan> Span(const MapExtent& extent) const;

  /// What a task has in memory of the model for a rectangle, at most.
  [[nodiscard]] std::uint64_t Window_Bytes(const MapExtent& extent) const;

 private:
  [[nodiscard]] std::optional<double> Cell(std::uint64_t col, std::uint64_t row) const;

  RasterModel model_;
  MappedFile cells_;
};

}  // namespace sylvomex
