// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace sylvomex {

/// Drawing colour: red, green and blue.
struct Colour {
  std::uint8_t r = 0, g = 0, b = 0;
  bool operator==(const Colour&) const = default;
};

}  // namespace sylvomex
