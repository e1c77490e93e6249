// SPDX-License-Identifier: MIT
// The pixels of a photograph, from any raster that GDAL reads to a raw file.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "interchange/circle_window.h"
#include "interchange/photo_given.h"

class GDALDataset;

namespace sylvomex {

/// An opened photograph. 1 or 2 bands are grey (the first), more are colour (the first three); a
/// palette is looked up, one of greys leaves a grey image; grey pixels of fewer than 8 bits are
/// spread over 0 to 255. Rows from the top.
class PhotoFile {
 public:
  /// Refused for a file that GDAL does not read as a raster, and for pixels that have neither 8 nor
  /// 16 bits.
  explicit PhotoFile(const std::filesystem::path& file);
  ~PhotoFile();
  PhotoFile(const PhotoFile&) = delete;
  PhotoFile& operator=(const PhotoFile&) = delete;

  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }
  [[nodiscard]] bool Is_Colour() const { return is_colour_; }
  [[nodiscard]] int Bands() const { return is_colour_ ? 3 : 1; }
  [[nodiscard]] bool Has_16_Bits() const { return has_16_bits_; }
  [[nodiscard]] const std::string& Name() const { return name_; }
  /// UTC of the exposure where the metadata tell it, ISO 8601, else empty.
  [[nodiscard]] std::string Utc() const;

  /// The bands of a window, interleaved by pixel. Refused when the file is damaged there.
  void Read(const PixelWindow& window, std::span<std::uint8_t> pixels) const;
  void Read(const PixelWindow& window, std::span<std::int32_t> pixels) const;

  /// How many rows to read at a time, a multiple of the file's blocks.
  [[nodiscard]] int Rows_At_Once() const;

 private:
  [[noreturn]] void Refuse_Damage(const PixelWindow& window) const;
  void Read_Palette();
  void Spread_Few_Bits();
  void Look_Up_Palette(std::span<std::uint8_t> pixels) const;

  std::string name_;
  std::unique_ptr<GDALDataset> dataset_;
  int width_ = 0, height_ = 0;
  bool is_colour_ = false;
  bool has_16_bits_ = false;
  std::vector<std::array<std::uint8_t, 3>> palette_;
};

/// 16-bit values from `low` to `high` become 0 to 255.
struct GreyStretch {
  double low = 0, high = 0;
};

/// The percentiles of all bands of the whole image, linear between neighbouring values of the
/// sorted pixels.
GreyStretch Percentile_Stretch(const PhotoFile& file, double low_percent, double high_percent);

/// Writes the window of a photograph as raw file, row by row from the top: 8 bits as they are, 16
/// bits stretched, the lens' distortion removed (bilinear, rounded, 0 where the source has no
/// pixel). path: where the bytes go; name: the file in messages.
void Write_Raw_Photo(const PhotoFile& file, const OrientedPhoto& photo, const PixelWindow& window,
                     const GreyStretch& stretch, const std::filesystem::path& path,
                     const std::string& name);

}  // namespace sylvomex
