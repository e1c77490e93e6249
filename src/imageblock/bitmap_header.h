// SPDX-License-Identifier: MIT
// The 54 header bytes of a BMP file, shared by the writers and the reader.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace sylvomex {

inline constexpr std::size_t kBitmapHeaderSize = 54;
inline constexpr std::uint16_t kBitmapFileType = 19778;  // "BM"
inline constexpr std::uint32_t kBitmapInfoSize = 40;
inline constexpr std::size_t kBitmapInfoStart = 14;

using BitmapHeaderBytes = std::array<std::uint8_t, kBitmapHeaderSize>;

/// The fields that differ between files; the others are fixed or 0.
struct BitmapHeader {
  std::uint32_t size = 0;
  std::uint32_t pixel_offset = 0;
  std::uint32_t info_size = kBitmapInfoSize;
  std::int32_t width = 0;
  std::int32_t height = 0;  // negative: rows from the top
  std::uint16_t bits = 0;
  std::uint32_t compression = 0;
  std::uint32_t colours_used = 0;
  std::uint32_t colours_important = 0;
};

BitmapHeaderBytes Encode_Bitmap_Header(const BitmapHeader& header);

/// bytes: at least kBitmapHeaderSize. The file type is not checked.
BitmapHeader Decode_Bitmap_Header(std::span<const std::uint8_t> bytes);

/// Bytes of a row in the file: padded to a multiple of 4.
inline std::int64_t Bitmap_Row_Size(std::int64_t width, int bits) {
  return (width * (bits / 8) + 3) / 4 * 4;
}

}  // namespace sylvomex
