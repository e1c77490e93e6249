// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace sylvomex {

/// Sums over pairs of bytes.
struct WindowProducts {
  std::int64_t b = 0;
  std::int64_t aa = 0, bb = 0, ab = 0;
};

/// Sums over count pairs, with the machine's widest vectors. Integer sums: the same on all.
WindowProducts Products_Of_Windows(const std::uint8_t* a, const std::uint8_t* b, std::size_t count);

}  // namespace sylvomex
