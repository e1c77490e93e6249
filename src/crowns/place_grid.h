// SPDX-License-Identifier: MIT
// Places of the map sorted into square cells, so that those near a point are found without a
// walk over all.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace sylvomex {

struct PlaceCells {
  std::int32_t first = 0;
  std::int32_t last = -1;  // before first: none
};

class PlaceGrid {
 public:
  /// X[i], Y[i] is place i, metres. Places that are not finite are near nothing.
  PlaceGrid(std::span<const double> X, std::span<const double> Y, double cell_size);

  /// Every place whose X and Y both differ by at most reach from the given ones, and perhaps
  /// others, into entries: ascending, each once. A reach below 0 or NaN finds none.
  void Near(double X, double Y, double reach, std::vector<std::int32_t>& entries) const;

 private:
  struct Axis {
    double start = 0;
    double scale = 0;  // cells a metre
    std::int32_t cells = 1;
    [[nodiscard]] std::int32_t Cell(double value) const;
    [[nodiscard]] PlaceCells Between(double low, double high) const;
  };
  static Axis Make_Axis(std::span<const double> values, double cell_size);

  Axis across_, up_;
  std::vector<std::int32_t> cell_starts_;  // of the cells, row by row, and the end of the last
  std::vector<std::int32_t> places_;       // cell by cell, ascending in a cell
};

}  // namespace sylvomex
