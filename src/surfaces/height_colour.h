// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

#include "platform/rounding.h"

namespace sylvomex {

/// Row of the colour map, 1 to 64, for a surface height in metres: 256 colours from 400 to 490 m,
/// four to a row.
inline int Height_Colour_Row(double Z) {
  constexpr double kLowest = 400.0, kHighest = 490.0;
  const double height = Z > kHighest ? 489.5 : std::max(Z, 0.0);
  double index = 255 * (height - kLowest) / (kHighest - kLowest);
  if (index < 4) index = 4;
  if (index > 254) index = 253;
  return To_Int16(index / 4);
}

}  // namespace sylvomex
