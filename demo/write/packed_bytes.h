// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstring>
#include <string>

namespace sylvomex::demo {

static_assert(std::endian::native == std::endian::little, "the site's files are little-endian");

/// Appends the bytes of a number.
template <class Number>
void Append_Bytes(std::string& out, Number value) {
  char bytes[sizeof(Number)];
  std::memcpy(bytes, &value, sizeof(Number));
  out.append(bytes, sizeof(Number));
}

}  // namespace sylvomex::demo
