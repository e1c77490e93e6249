// SPDX-License-Identifier: MIT
#include "crowns/place_grid.h"

#include <algorithm>
#include <cmath>

namespace sylvomex {
namespace {

constexpr double kMostCells = 256;  // along an axis
constexpr double kMargin = 1e-6;    // a distance of that size may come out rounded

bool Is_Finite_Place(double X, double Y) { return std::isfinite(X) && std::isfinite(Y); }

}  // namespace

std::int32_t PlaceGrid::Axis::Cell(double value) const {
  const double cell = (value - start) * scale;
  if (!(cell > 0)) return 0;
  return static_cast<std::int32_t>(std::min(cell, static_cast<double>(cells - 1)));
}

PlaceCells PlaceGrid::Axis::Between(double low, double high) const {
  return {Cell(low), Cell(high)};
}

PlaceGrid::Axis PlaceGrid::Make_Axis(std::span<const double> values, double cell_size) {
  double low = HUGE_VAL, high = -HUGE_VAL;
  for (const double value : values) {
    if (!std::isfinite(value)) continue;
    low = std::min(low, value);
    high = std::max(high, value);
  }
  Axis axis;
  const double extent = high / 2 - low / 2;  // halves, which cannot overflow
  if (!(extent > 0)) return axis;
  const double cells = std::clamp(std::ceil(2 * (extent / cell_size)), 1.0, kMostCells);
  axis.start = low;
  axis.scale = cells / extent / 2;
  axis.cells = static_cast<std::int32_t>(cells);
  return axis;
}

PlaceGrid::PlaceGrid(std::span<const double> X, std::span<const double> Y, double cell_size)
    : across_(Make_Axis(X, cell_size)), up_(Make_Axis(Y, cell_size)) {
  const auto cell_of = [&](std::size_t i) {
    return static_cast<std::size_t>(up_.Cell(Y[i])) * static_cast<std::size_t>(across_.cells) +
           static_cast<std::size_t>(across_.Cell(X[i]));
  };
  const std::size_t cells =
      static_cast<std::size_t>(up_.cells) * static_cast<std::size_t>(across_.cells);
  cell_starts_.assign(cells + 2, 0);
  for (std::size_t i = 0; i < X.size(); ++i) {
    if (Is_Finite_Place(X[i], Y[i])) ++cell_starts_[cell_of(i) + 2];
  }
  for (std::size_t c = 2; c < cell_starts_.size(); ++c) cell_starts_[c] += cell_starts_[c - 1];
  places_.resize(static_cast<std::size_t>(cell_starts_.back()));
  for (std::size_t i = 0; i < X.size(); ++i) {
    if (!Is_Finite_Place(X[i], Y[i])) continue;
    places_[static_cast<std::size_t>(cell_starts_[cell_of(i) + 1]++)] =
        static_cast<std::int32_t>(i);
  }
}

void PlaceGrid::Near(double X, double Y, double reach, std::vector<std::int32_t>& entries) const {
  entries.clear();
  if (!(reach >= 0) || !Is_Finite_Place(X, Y)) return;
  const double wide = reach * (1 + kMargin) + kMargin;
  const PlaceCells cols = across_.Between(X - wide, X + wide);
  const PlaceCells rows = up_.Between(Y - wide, Y + wide);
  for (std::int32_t row = rows.first; row <= rows.last; ++row) {
    const auto row_start = static_cast<std::size_t>(row) * static_cast<std::size_t>(across_.cells);
    const auto begin = cell_starts_[row_start + static_cast<std::size_t>(cols.first)];
    const auto end = cell_starts_[row_start + static_cast<std::size_t>(cols.last) + 1];
    entries.insert(entries.end(), places_.begin() + begin, places_.begin() + end);
  }
  std::ranges::sort(entries);
}

}  // namespace sylvomex
