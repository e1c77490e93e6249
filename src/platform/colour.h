// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// Red, green and blue of what is drawn.
struct Colour {
  std::uint8_t r = 0, g = 0, b = 0;
  bool operator==(const Colour&) const = default;
};

}  // namespace sylvomex
