// SPDX-License-Identifier: MIT
// Pointer shapes as .CUR files hold them: a directory of pictures, each a bitmap without its file
// header, colour rows and mask rows from the bottom, or a PNG.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sylvomex {

inline constexpr int kLargestCursorSide = 256;  // pixels

struct CursorBytes {
  int hot_col = 0;  // the hot spot, pixels from the top left corner
  int hot_row = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> argb;    // rows from the top, 0xAARRGGBB
  std::span<const std::uint8_t> png;  // in place of the pixels, whose size is then unknown
};

/// The first picture of a .CUR file: 1, 4, 8, 24 or 32 bits a pixel, uncompressed, at most 256 by
/// 256 with its hot spot inside, or the undecoded bytes of a PNG, which belong to the caller's
/// bytes. Pixels that would invert the screen become white. std::nullopt for other bytes.
std::optional<CursorBytes> Decode_Cursor(std::span<const std::uint8_t> bytes);

}  // namespace sylvomex
