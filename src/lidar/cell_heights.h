// SPDX-License-Identifier: MIT
// Mean and least height of the last echoes in the cells of a raster.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "lidar/tile_2004.h"

namespace sylvomex {

struct CellHeights {
  float mean = 0;     // metres
  float minimum = 0;  // metres; 1000 when every echo lies above that
};

/// The last echoes of a tile, ordered for looking cells up.
class LastEchoes {
 public:
  explicit LastEchoes(std::span<const Lidar2004Record> records);

  /// Of the echoes nearer than half a cell to the centre in X and in Y, the sum of the mean
  /// taken in the order of the records; std::nullopt where there is none.
  [[nodiscard]] std::optional<CellHeights> Of_Cell(double X, double Y, double cell_size) const;

  [[nodiscard]] std::size_t Count() const { return echoes_.size(); }

 private:
  struct Echo {
    double X = 0, Y = 0;
    float Z = 0;
    std::int32_t order = 0;
  };
  std::vector<Echo> echoes_;  // by X
};

}  // namespace sylvomex
