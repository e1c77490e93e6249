// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "imageblock/bitmap_file.h"
#include "imageblock/bitmap_header.h"
#include "platform/files.h"
#include "platform/replacing_file.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPaletteEntries = 256;
constexpr std::size_t kGreyPixelOffset = 1082;  // four bytes past the palette's end

[[noreturn]] void Throw_Size(const FilePath& file, int width, int height, std::size_t bytes) {
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     file.name + ": " + std::to_string(bytes) + " pixel bytes for a bitmap of " +
                         std::to_string(width) + " x " + std::to_string(height));
}

void Check_Size(const FilePath& file, int width, int height, int bytes_per_pixel,
                std::size_t bytes) {
  if (width < 0 || height < 0) Throw_Size(file, width, height, bytes);
  const std::size_t row = static_cast<std::size_t>(width) * bytes_per_pixel;
  if (row == 0 || height == 0 ? bytes != 0 : bytes % row != 0 || bytes / row != std::size_t(height))
    Throw_Size(file, width, height, bytes);
}

/// Padding of a pane bitmap's row, in pixels.
std::int64_t Pane_Row_Pad(int width) {
  const std::int64_t over = 3 * static_cast<std::int64_t>(width) % 4;
  return over == 0 ? 0 : 4 - over;
}

BitmapHeaderBytes Pane_Header(int width, int height) {
  BitmapHeader header;
  header.size = 3 * static_cast<std::uint32_t>(width + Pane_Row_Pad(width)) *
                static_cast<std::uint32_t>(height);
  header.pixel_offset = kBitmapHeaderSize;
  header.width = width;
  header.height = static_cast<std::int32_t>(-static_cast<std::int64_t>(height));
  header.bits = 24;
  return Encode_Bitmap_Header(header);
}

BitmapHeaderBytes Picture_Header(const PaneBitmap& bitmap, std::size_t file_size) {
  BitmapHeader header;
  header.size = static_cast<std::uint32_t>(file_size);
  header.pixel_offset = kBitmapHeaderSize;
  header.width = bitmap.width;
  header.height = bitmap.height;
  header.bits = 24;
  return Encode_Bitmap_Header(header);
}

BitmapHeaderBytes Grey_Header(int width, int height) {
  BitmapHeader header;
  header.size = static_cast<std::uint32_t>(static_cast<std::int64_t>(width) * height);
  header.pixel_offset = kGreyPixelOffset;
  header.width = width;
  header.height = height;
  header.bits = 8;
  header.colours_used = kPaletteEntries;
  header.colours_important = kPaletteEntries;
  return Encode_Bitmap_Header(header);
}

void Put_Grey_Palette(std::vector<std::uint8_t>& content) {
  for (std::size_t entry = 0; entry < kPaletteEntries; ++entry) {
    std::fill_n(content.begin() + static_cast<std::ptrdiff_t>(kBitmapHeaderSize + 4 * entry), 3,
                static_cast<std::uint8_t>(entry));
  }
}

/// The whole file.
std::vector<std::uint8_t> Pane_Bitmap_Content(const FilePath& file, const PaneBitmap& bitmap) {
  Check_Size(file, bitmap.width, bitmap.height, 3, bitmap.bgr.size());
  const BitmapHeaderBytes header = Pane_Header(bitmap.width, bitmap.height);
  const std::size_t row = 3 * static_cast<std::size_t>(bitmap.width);
  const std::size_t pad = 3 * static_cast<std::size_t>(Pane_Row_Pad(bitmap.width));
  std::vector<std::uint8_t> content;
  content.reserve(header.size() + bitmap.bgr.size() + pad * bitmap.height);
  content.insert(content.end(), header.begin(), header.end());
  if (pad == 0) {
    content.insert(content.end(), bitmap.bgr.begin(), bitmap.bgr.end());
  } else {
    for (auto from = bitmap.bgr.begin(); from != bitmap.bgr.end(); from += row) {
      content.insert(content.end(), from, from + row);
      content.insert(content.end(), pad, 0);
    }
  }
  return content;
}

}  // namespace

void Write_Pane_Bitmap(const FilePath& file, const PaneBitmap& bitmap) {
  Write_Whole_File(file, Pane_Bitmap_Content(file, bitmap));
}

void Replace_Pane_Bitmap(const FilePath& file, const PaneBitmap& bitmap) {
  if (Pane_Row_Pad(bitmap.width) != 0) {
    return Replace_Whole_File(file, Pane_Bitmap_Content(file, bitmap));
  }
  Check_Size(file, bitmap.width, bitmap.height, 3, bitmap.bgr.size());
  const BitmapHeaderBytes header = Pane_Header(bitmap.width, bitmap.height);
  ReplacingFile replacing(file, header.size() + bitmap.bgr.size());
  replacing.Write_At(0, header);
  replacing.Write_At(header.size(), bitmap.bgr);
  replacing.Commit();
}

void Replace_Bitmap(const FilePath& file, const PaneBitmap& bitmap) {
  Check_Size(file, bitmap.width, bitmap.height, 3, bitmap.bgr.size());
  const std::size_t row = 3 * static_cast<std::size_t>(bitmap.width);
  const std::size_t stride = static_cast<std::size_t>(Bitmap_Row_Size(bitmap.width, 24));
  std::vector<std::uint8_t> content(kBitmapHeaderSize + stride * bitmap.height);
  const BitmapHeaderBytes header = Picture_Header(bitmap, content.size());
  std::copy(header.begin(), header.end(), content.begin());
  std::uint8_t* to = content.data() + content.size();
  for (auto from = bitmap.bgr.begin(); from != bitmap.bgr.end(); from += row) {
    to -= stride;
    std::copy_n(from, row, to);
  }
  Replace_Whole_File(file, content);
}

void Rewrite_Bitmap_Header(const FilePath& file, int width, int height) {
  Overwrite_Start(file, Pane_Header(width, height));
}

void Write_Grey_Bitmap(const FilePath& file, int width, int height,
                       std::span<const std::uint8_t> pixels) {
  Check_Size(file, width, height, 1, pixels.size());
  const std::size_t stride = static_cast<std::size_t>(Bitmap_Row_Size(width, 8));
  std::vector<std::uint8_t> content(kGreyPixelOffset + stride * height);
  const BitmapHeaderBytes header = Grey_Header(width, height);
  std::copy(header.begin(), header.end(), content.begin());
  Put_Grey_Palette(content);
  for (int row = 0; row < height && width > 0; ++row) {
    std::memcpy(&content[kGreyPixelOffset + stride * static_cast<std::size_t>(height - 1 - row)],
                &pixels[static_cast<std::size_t>(row) * width], static_cast<std::size_t>(width));
  }
  Write_Whole_File(file, content);
}

}  // namespace sylvomex
