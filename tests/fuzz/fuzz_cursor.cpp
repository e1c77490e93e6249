// SPDX-License-Identifier: MIT
// The input is a cursor file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "imageblock/cursor_bytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto cursor = sylvomex::Decode_Cursor(std::span(data, size));
  if (!cursor) return 0;
  const bool is_png = !cursor->png.empty();
  if (cursor->png.size() > size) std::abort();
  const auto pixels = static_cast<std::size_t>(cursor->width) * cursor->height;
  if (cursor->argb.size() != (is_png ? 0 : pixels)) std::abort();
  const bool hot_spot_inside = cursor->hot_col >= 0 && cursor->hot_col < cursor->width &&
                               cursor->hot_row >= 0 && cursor->hot_row < cursor->height;
  if (!is_png && !hot_spot_inside) std::abort();
  return 0;
}
