// SPDX-License-Identifier: MIT
// A picture in so few colours that its file becomes small.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace sylvomex::demo {

struct FewColours {
  std::vector<std::uint32_t> palette;  // 0xRRGGBB
  std::vector<std::uint8_t> pixels;    // entries of the palette
};

/// The picture in at most 256 colours, by cutting the box of its colours at the median of its
/// longest side again and again (Heckbert, Color image quantization for frame buffer display,
/// SIGGRAPH 1982). Exact where the picture has no more of them. pixels: 0xRRGGBB.
FewColours In_Few_Colours(std::span<const std::uint32_t> pixels);

}  // namespace sylvomex::demo
