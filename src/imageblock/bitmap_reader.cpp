// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "imageblock/bitmap_file.h"
#include "imageblock/bitmap_header.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::size_t kPaletteEntries = 256;

/// Blue, green, red of each palette entry; entries missing from the file are black.
using Palette = std::array<std::array<std::uint8_t, 3>, kPaletteEntries>;

[[noreturn]] void Throw_Bad(const FilePath& file, const std::string& cause) {
  throw RunTimeError(Failure::BadContent, file.name + ": " + cause, file.native);
}

void Check_Kind(const FilePath& file, const BitmapHeader& header) {
  if (header.info_size < kBitmapInfoSize) {
    Throw_Bad(file, "info header of " + std::to_string(header.info_size) + " bytes, at least " +
                        std::to_string(kBitmapInfoSize) + " are needed");
  }
  if (header.bits != 24 && header.bits != 8) {
    Throw_Bad(file, std::to_string(header.bits) + " bits a pixel, only 24 and 8 can be shown");
  }
  if (header.compression != 0) {
    Throw_Bad(file, "compression " + std::to_string(header.compression) +
                        ", only uncompressed bitmaps can be shown");
  }
}

std::string Size_Text(const BitmapHeader& header) {
  return std::to_string(header.width) + " x " + std::to_string(header.height);
}

/// Number of rows of the picture. Throws unless the header's pixels lie wholly inside the file.
std::int64_t Check_Extent(const FilePath& file, const BitmapHeader& header,
                          std::uint64_t file_size) {
  const std::int64_t rows = std::llabs(header.height);
  if (header.width <= 0 || rows == 0) Throw_Bad(file, "a picture of " + Size_Text(header));
  const std::uint64_t least_offset = kBitmapInfoStart + std::uint64_t{header.info_size};
  if (header.pixel_offset < least_offset || header.pixel_offset > file_size) {
    Throw_Bad(file, "pixels at offset " + std::to_string(header.pixel_offset) + " of a file of " +
                        std::to_string(file_size) + " bytes");
  }
  const std::int64_t stride = Bitmap_Row_Size(header.width, header.bits);
  const auto left = static_cast<std::int64_t>(file_size - header.pixel_offset);
  if (left / stride < rows) {
    Throw_Bad(file, "a picture of " + Size_Text(header) + " needs rows of " +
                        std::to_string(stride) + " bytes, the file has " + std::to_string(left) +
                        " pixel bytes");
  }
  return rows;
}

Palette Read_Palette(const PositionalFile& source, const BitmapHeader& header) {
  const std::uint64_t start = kBitmapInfoStart + std::uint64_t{header.info_size};
  const std::uint64_t room = (header.pixel_offset - start) / 4;
  const std::uint64_t told = header.colours_used == 0 ? kPaletteEntries : header.colours_used;
  const std::uint64_t entries = std::min({told, room, std::uint64_t{kPaletteEntries}});
  std::array<std::uint8_t, 4 * kPaletteEntries> bytes{};
  source.Read_At(static_cast<std::int64_t>(start), std::span(bytes).first(4 * entries));
  Palette palette{};
  for (std::size_t entry = 0; entry < entries; ++entry) {
    std::copy_n(&bytes[4 * entry], 3, palette[entry].begin());
  }
  return palette;
}

void Fill(const PositionalFile& source, const FilePath& file, std::uint32_t offset,
          std::span<std::uint8_t> buffer) {
  if (source.Read_At(offset, buffer) != buffer.size()) {
    throw RunTimeError(Failure::InputPastEnd, file.name + ": the file was cut while it was read",
                       file.native);
  }
}

void Unpack_Rows(const BitmapHeader& header, const Palette& palette,
                 const std::vector<std::uint8_t>& pixels, PaneBitmap& picture) {
  const auto stride = static_cast<std::size_t>(Bitmap_Row_Size(header.width, header.bits));
  const auto width = static_cast<std::size_t>(picture.width);
  const auto rows = static_cast<std::size_t>(picture.height);
  for (std::size_t row = 0; row < rows; ++row) {
    const std::uint8_t* from = &pixels[stride * (header.height > 0 ? rows - 1 - row : row)];
    std::uint8_t* to = &picture.bgr[3 * width * row];
    if (header.bits == 24) {
      std::memcpy(to, from, 3 * width);
    } else {
      for (std::size_t col = 0; col < width; ++col) {
        std::copy_n(palette[from[col]].begin(), 3, to + 3 * col);
      }
    }
  }
}

}  // namespace

PaneBitmap Load_Bitmap(const FilePath& file) {
  const PositionalFile source(file);
  std::array<std::uint8_t, kBitmapHeaderSize> start{};
  if (source.Read_At(0, start) < start.size() || start[0] != 'B' || start[1] != 'M') {
    Throw_Bad(file, "not a bitmap file");
  }
  const BitmapHeader header = Decode_Bitmap_Header(start);
  Check_Kind(file, header);
  const std::int64_t rows = Check_Extent(file, header, source.Size());
  PaneBitmap picture{header.width, static_cast<int>(rows), {}};
  picture.bgr.resize(3 * static_cast<std::size_t>(header.width) * static_cast<std::size_t>(rows));
  const std::int64_t stride = Bitmap_Row_Size(header.width, header.bits);
  if (header.bits == 24 && header.height < 0 && stride == 3 * std::int64_t{header.width}) {
    Fill(source, file, header.pixel_offset, picture.bgr);
    return picture;
  }
  const Palette palette = header.bits == 8 ? Read_Palette(source, header) : Palette{};
  std::vector<std::uint8_t> pixels(static_cast<std::size_t>(stride * rows));
  Fill(source, file, header.pixel_offset, pixels);
  Unpack_Rows(header, palette, pixels, picture);
  return picture;
}

}  // namespace sylvomex
