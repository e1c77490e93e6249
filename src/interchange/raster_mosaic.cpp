// SPDX-License-Identifier: MIT
#include "interchange/raster_mosaic.h"

#include <algorithm>
#include <cmath>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "platform/number_text.h"

namespace sylvomex {
namespace {

constexpr double kMostCells = 32767;  // of a height model along an axis
constexpr double kSlack = 1e-3;       // of a cell

}  // namespace

RasterMosaic::RasterMosaic(const std::vector<std::filesystem::path>& files,
                           const std::string& site) {
  for (const std::filesystem::path& file : files) {
    sources_.push_back(std::make_unique<RasterSource>(file, site));
  }
  Choose_Grid();
  for (const auto& source : sources_) {
    if (source->Place_On(grid_)) {
      notes_.push_back(source->Name() + ": resampled bilinearly to cells of " +
                       Plain_Text(grid_.cell) + " m");
    }
    if (source->In_Feet()) {
      notes_.push_back(source->Name() + ": its heights are brought to metres");
    }
    if (source->Height_Unit_Is_Open()) notes_.push_back(source->Name() + kHeightsInMetres);
  }
}

void RasterMosaic::Choose_Grid() {
  MapExtent all = sources_.front()->Extent();
  double cell = sources_.front()->Cell_Size();
  for (const auto& source : sources_) {
    const MapExtent& one = source->Extent();
    all = {std::min(all.west, one.west), std::min(all.south, one.south),
           std::max(all.east, one.east), std::max(all.north, one.north)};
    cell = std::min(cell, source->Cell_Size());
  }
  double X = 0, Y = 0;  // a corner of the cells
  for (auto source = sources_.rbegin(); source != sources_.rend(); ++source) {
    const auto& own = (*source)->Grid();
    if (!own || own->cell > cell * (1 + 1e-9)) continue;
    X = own->west;
    Y = own->north;
    cell = own->cell;
  }
  const double first = std::floor((all.west - X) / cell + kSlack);
  const double last = std::ceil((all.east - X) / cell - kSlack);
  const double top = std::ceil((all.north - Y) / cell - kSlack);
  const double bottom = std::floor((all.south - Y) / cell + kSlack);
  if (!(last - first <= kMostCells && top - bottom <= kMostCells)) {
    throw Refused(sources_.front()->Name() + ": a model of " + Plain_Text(last - first) +
                  " columns and " + Plain_Text(top - bottom) + " rows; height models end at 32767");
  }
  grid_ = {X + first * cell, Y + top * cell, cell, static_cast<std::int64_t>(last - first),
           static_cast<std::int64_t>(top - bottom)};
}

void RasterMosaic::Read_Row(std::int64_t row, std::span<double> heights) {
  std::fill(heights.begin(), heights.end(), kNoHeight);
  for (const auto& source : sources_) source->Read_Row(row, heights);
}

}  // namespace sylvomex
