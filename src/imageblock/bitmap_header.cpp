// SPDX-License-Identifier: MIT
#include "imageblock/bitmap_header.h"

namespace sylvomex {
namespace {

void Put16(BitmapHeaderBytes& bytes, std::size_t at, std::uint16_t value) {
  bytes[at] = static_cast<std::uint8_t>(value & 0xFF);
  bytes[at + 1] = static_cast<std::uint8_t>(value >> 8);
}

void Put32(BitmapHeaderBytes& bytes, std::size_t at, std::uint32_t value) {
  Put16(bytes, at, static_cast<std::uint16_t>(value & 0xFFFF));
  Put16(bytes, at + 2, static_cast<std::uint16_t>(value >> 16));
}

std::uint16_t Get16(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

std::uint32_t Get32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return Get16(bytes, at) | static_cast<std::uint32_t>(Get16(bytes, at + 2)) << 16;
}

}  // namespace

BitmapHeaderBytes Encode_Bitmap_Header(const BitmapHeader& header) {
  BitmapHeaderBytes bytes{};
  Put16(bytes, 0, kBitmapFileType);
  Put32(bytes, 2, header.size);
  Put32(bytes, 10, header.pixel_offset);
  Put32(bytes, 14, header.info_size);
  Put32(bytes, 18, static_cast<std::uint32_t>(header.width));
  Put32(bytes, 22, static_cast<std::uint32_t>(header.height));
  Put16(bytes, 26, 1);  // planes
  Put16(bytes, 28, header.bits);
  Put32(bytes, 30, header.compression);
  Put32(bytes, 46, header.colours_used);
  Put32(bytes, 50, header.colours_important);
  return bytes;
}

BitmapHeader Decode_Bitmap_Header(std::span<const std::uint8_t> bytes) {
  BitmapHeader header;
  header.size = Get32(bytes, 2);
  header.pixel_offset = Get32(bytes, 10);
  header.info_size = Get32(bytes, 14);
  header.width = static_cast<std::int32_t>(Get32(bytes, 18));
  header.height = static_cast<std::int32_t>(Get32(bytes, 22));
  header.bits = Get16(bytes, 28);
  header.compression = Get32(bytes, 30);
  header.colours_used = Get32(bytes, 46);
  header.colours_important = Get32(bytes, 50);
  return header;
}

}  // namespace sylvomex
