// SPDX-License-Identifier: MIT
#include "imageblock/cursor_bytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace sylvomex {
namespace {

using Bytes = std::span<const std::uint8_t>;

static_assert(std::endian::native == std::endian::little, "cursor files are little-endian");

constexpr std::size_t kDirectoryBytes = 6;
constexpr std::size_t kEntryBytes = 16;
constexpr std::size_t kBitmapHeaderBytes = 40;
constexpr std::uint32_t kOpaque = 0xff000000;
constexpr std::uint32_t kWhitePixel = 0xffffffff;

template <class Number>
Number Read(Bytes bytes, std::size_t at) {
  Number number;
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

std::size_t Padded_Row_Bytes(std::size_t width, std::size_t bits) {
  return (width * bits + 31) / 32 * 4;
}

/// A cursor's bitmap: colour rows, then mask rows, both from the bottom.
struct CursorBitmap {
  std::size_t width = 0;
  std::size_t height = 0;
  std::size_t bits = 0;
  std::size_t colours = 0;  // number of palette entries

  [[nodiscard]] std::size_t Rows_At() const { return kBitmapHeaderBytes + colours * 4; }
  [[nodiscard]] std::size_t Mask_At() const {
    return Rows_At() + height * Padded_Row_Bytes(width, bits);
  }
  [[nodiscard]] std::size_t End() const { return Mask_At() + height * Padded_Row_Bytes(width, 1); }
};

bool Is_Known_Depth(std::size_t bits) {
  constexpr std::array<std::size_t, 5> kDepths{1, 4, 8, 24, 32};
  return std::ranges::find(kDepths, bits) != kDepths.end();
}

std::optional<CursorBitmap> Read_Bitmap_Header(Bytes picture) {
  if (picture.size() < kBitmapHeaderBytes) return std::nullopt;
  const auto header_bytes = Read<std::uint32_t>(picture, 0);
  const auto width = Read<std::int32_t>(picture, 4);
  const auto doubled_height = Read<std::int32_t>(picture, 8);
  const std::size_t bits = Read<std::uint16_t>(picture, 14);
  const auto compression = Read<std::uint32_t>(picture, 16);
  const auto colours = Read<std::uint32_t>(picture, 32);
  if (header_bytes != kBitmapHeaderBytes || !Is_Known_Depth(bits) || compression != 0) {
    return std::nullopt;
  }
  if (width < 1 || width > kLargestCursorSide || doubled_height < 2 ||
      doubled_height > 2 * kLargestCursorSide || colours > 256) {
    return std::nullopt;
  }
  CursorBitmap bitmap{static_cast<std::size_t>(width), static_cast<std::size_t>(doubled_height / 2),
                      bits, 0};
  if (bits <= 8) bitmap.colours = colours == 0 ? std::size_t{1} << bits : colours;
  if (picture.size() < bitmap.End()) return std::nullopt;
  return bitmap;
}

/// Entry of a row with 1, 4 or 8 bits an entry, the first entry in the highest bits.
std::size_t Packed_Entry(Bytes picture, std::size_t row_at, std::size_t col, std::size_t bits) {
  const std::size_t bit = col * bits;
  const std::size_t byte = picture[row_at + bit / 8];
  return (byte >> (8 - bits - bit % 8)) & ((std::size_t{1} << bits) - 1);
}

std::uint32_t Colour_At(Bytes picture, const CursorBitmap& bitmap, std::size_t row_at,
                        std::size_t col) {
  std::size_t at = row_at + col * bitmap.bits / 8;
  if (bitmap.bits <= 8) {
    const std::size_t entry = Packed_Entry(picture, row_at, col, bitmap.bits);
    if (entry >= bitmap.colours) return kOpaque;
    at = kBitmapHeaderBytes + entry * 4;
  }
  const auto channel = [&](std::size_t k) { return std::uint32_t{picture[at + k]}; };
  const std::uint32_t alpha = bitmap.bits == 32 ? channel(3) << 24 : kOpaque;
  return alpha | channel(2) << 16 | channel(1) << 8 | channel(0);
}

std::uint32_t Masked_Colour(std::uint32_t colour, bool masked, bool has_alpha) {
  if (has_alpha) return colour;
  if (!masked) return colour | kOpaque;
  const bool inverts = (colour & ~kOpaque) != 0;
  return inverts ? kWhitePixel : 0;
}

bool Uses_Alpha(Bytes picture, const CursorBitmap& bitmap) {
  if (bitmap.bits != 32) return false;
  for (std::size_t at = bitmap.Rows_At() + 3; at < bitmap.Mask_At(); at += 4) {
    if (picture[at] != 0) return true;
  }
  return false;
}

std::vector<std::uint32_t> Read_Pixels(Bytes picture, const CursorBitmap& bitmap) {
  const bool has_alpha = Uses_Alpha(picture, bitmap);
  std::vector<std::uint32_t> argb;
  argb.reserve(bitmap.width * bitmap.height);
  for (std::size_t y = 0; y < bitmap.height; ++y) {
    const std::size_t from_bottom = bitmap.height - 1 - y;
    const std::size_t row_at =
        bitmap.Rows_At() + from_bottom * Padded_Row_Bytes(bitmap.width, bitmap.bits);
    const std::size_t mask_at = bitmap.Mask_At() + from_bottom * Padded_Row_Bytes(bitmap.width, 1);
    for (std::size_t x = 0; x < bitmap.width; ++x) {
      const bool masked = Packed_Entry(picture, mask_at, x, 1) != 0;
      argb.push_back(Masked_Colour(Colour_At(picture, bitmap, row_at, x), masked, has_alpha));
    }
  }
  return argb;
}

/// The bytes of the first picture; none for a directory that is no cursor's.
Bytes First_Picture(Bytes bytes) {
  constexpr int kCursorType = 2;
  if (bytes.size() < kDirectoryBytes + kEntryBytes || Read<std::uint16_t>(bytes, 0) != 0 ||
      Read<std::uint16_t>(bytes, 2) != kCursorType || Read<std::uint16_t>(bytes, 4) == 0) {
    return {};
  }
  const std::size_t length = Read<std::uint32_t>(bytes, kDirectoryBytes + 8);
  const std::size_t offset = Read<std::uint32_t>(bytes, kDirectoryBytes + 12);
  if (offset > bytes.size() || length > bytes.size() - offset) return {};
  return bytes.subspan(offset, length);
}

bool Is_Png(Bytes picture) {
  constexpr std::array<std::uint8_t, 4> kStart{0x89, 'P', 'N', 'G'};
  return picture.size() >= kStart.size() && std::ranges::equal(picture.first(4), kStart);
}

}  // namespace

std::optional<CursorBytes> Decode_Cursor(Bytes bytes) {
  const Bytes picture = First_Picture(bytes);
  if (picture.empty()) return std::nullopt;
  CursorBytes cursor;
  cursor.hot_col = Read<std::uint16_t>(bytes, kDirectoryBytes + 4);
  cursor.hot_row = Read<std::uint16_t>(bytes, kDirectoryBytes + 6);
  if (Is_Png(picture)) {
    cursor.png = picture;
    return cursor;
  }
  const auto bitmap = Read_Bitmap_Header(picture);
  if (!bitmap) return std::nullopt;
  cursor.width = static_cast<int>(bitmap->width);
  cursor.height = static_cast<int>(bitmap->height);
  if (cursor.hot_col >= cursor.width || cursor.hot_row >= cursor.height) return std::nullopt;
  cursor.argb = Read_Pixels(picture, *bitmap);
  return cursor;
}

}  // namespace sylvomex
