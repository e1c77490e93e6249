// SPDX-License-Identifier: MIT
#include "overlays/jet_colours.h"

#include <algorithm>
#include <cmath>

#include "platform/rounding.h"

namespace sylvomex {
namespace {

int Tent(double share, double middle) {
  return To_Byte(255 * std::clamp(1.5 - std::abs(4 * (share - middle)), 0.0, 1.0));
}

}  // namespace

std::string Jet_Colour_Map() {
  std::string rows;
  for (int row = 1; row <= 64; ++row) {
    const double share = row / 64.0;
    rows += std::to_string(Tent(share, 0.75)) + "," + std::to_string(Tent(share, 0.5)) + "," +
            std::to_string(Tent(share, 0.25)) + "\n";
  }
  return rows;
}

}  // namespace sylvomex
