// SPDX-License-Identifier: MIT
#include "demo/write/exact_text.h"

#include <array>
#include <charconv>

namespace sylvomex::demo {

std::string Exact_Text(double value) {
  std::array<char, 400> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed)
          .ptr;
  return {buffer.data(), end};
}

std::string Fixed_Decimals(double value, int decimals) {
  std::array<char, 400> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::fixed, decimals)
                       .ptr;
  return {buffer.data(), end};
}

}  // namespace sylvomex::demo
