// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "interchange/raster_source.h"

namespace sylvomex {

/// One or more rasters as one grid of the site's coordinate system. Its cells are as small as the
/// smallest of the rasters, and lie as those of the first raster of this size that is to be copied.
class RasterMosaic {
 public:
  /// Refused as RasterSource, and for a grid that no height model can hold.
  RasterMosaic(const std::vector<std::filesystem::path>& files, const std::string& site);

  [[nodiscard]] const CellGrid& Grid() const { return grid_; }

  /// Heights of a row (from the north), kNoHeight where there is none.
  void Read_Row(std::int64_t row, std::span<double> heights);

  /// What was done to the rasters, a sentence each.
  [[nodiscard]] const std::vector<std::string>& Notes() const { return notes_; }

 private:
  void Choose_Grid();

  std::vector<std::unique_ptr<RasterSource>> sources_;
  CellGrid grid_;
  std::vector<std::string> notes_;
};

}  // namespace sylvomex
