// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace sylvomex {

/// A picture in memory: rows from the top, pixels as blue, green, red bytes, no row padding.
struct PaneBitmap {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bgr;
};

}  // namespace sylvomex
