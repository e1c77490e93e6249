// SPDX-License-Identifier: MIT
#include <cpl_error.h>
#include <gdal_priv.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "interchange/coordinate_system.h"
#include "interchange/failures.h"
#include "interchange/ordinary_file.h"
#include "interchange/photo_pixels.h"
#include "interchange/sun_position.h"

namespace sylvomex {
namespace {

constexpr std::int64_t kBytesAtOnce = 16 << 20;

std::string Metadata(const GDALDataset& dataset, const char* key) {
  const char* const value = const_cast<GDALDataset&>(dataset).GetMetadataItem(key);
  return value == nullptr ? "" : value;
}

/// "2024:06:21" with '-' in place of the first two ':'.
std::string Iso_Date(std::string date) {
  if (date.size() < 10) return "";
  date[4] = date[7] = '-';
  return date;
}

/// The satellites' clock: EXIF's date "2024:06:21" and time "(10) (30) (15.5)".
std::string Satellite_Time(const GDALDataset& dataset) {
  double hour = 0;
  double minute = 0;
  double second = 0;
  const std::string time = Metadata(dataset, "EXIF_GPSTimeStamp");
  if (std::sscanf(time.c_str(), "(%lf) (%lf) (%lf)", &hour, &minute, &second) != 3) return "";
  char text[48];
  std::snprintf(text, sizeof text, "T%02.0f:%02.0f:%06.3fZ", hour, minute, second);
  return Iso_Date(Metadata(dataset, "EXIF_GPSDateStamp")) + text;
}

}  // namespace

PhotoFile::PhotoFile(const std::filesystem::path& file) : name_(file.string()) {
  Start_Gdal();
  CPLErrorReset();
  if (!std::filesystem::exists(file)) throw Refused(name_ + ": the file does not exist");
  Require_No_Device(name_);
  dataset_.reset(GDALDataset::Open(name_.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
  if (dataset_ == nullptr) {
    throw Refused(name_ + ": no image that can be read: " + Gdal_Message("unknown format"));
  }
  width_ = dataset_->GetRasterXSize();
  height_ = dataset_->GetRasterYSize();
  const int bands = dataset_->GetRasterCount();
  if (bands == 0) throw Refused(name_ + ": the file holds no single image");
  is_colour_ = bands >= 3;
  for (int band = 1; band <= Bands(); ++band) {
    const GDALDataType type = dataset_->GetRasterBand(band)->GetRasterDataType();
    if (type != GDT_Byte && type != GDT_UInt16 && type != GDT_Int16) {
      throw Refused(name_ + ": pixels of the type " + GDALGetDataTypeName(type) +
                    ", neither 8 nor 16 bits");
    }
    has_16_bits_ = has_16_bits_ || type != GDT_Byte;
  }
  if (bands == 1 && !has_16_bits_) Read_Palette();
  if (palette_.empty() && !is_colour_) Spread_Few_Bits();
}

/// Pixels of fewer than 8 bits, as scans in black and white have them, get the whole range of
/// greys.
void PhotoFile::Spread_Few_Bits() {
  constexpr int kGreys = 256;
  const char* const text = dataset_->GetRasterBand(1)->GetMetadataItem("NBITS", "IMAGE_STRUCTURE");
  const int bits = text == nullptr ? 0 : std::atoi(text);
  if (bits < 1 || bits >= 8) return;
  const int most = (1 << bits) - 1;
  palette_.resize(kGreys);
  for (int i = 0; i < kGreys; ++i) {
    palette_[static_cast<std::size_t>(i)].fill(
        static_cast<std::uint8_t>((std::min(i, most) * (kGreys - 1) + most / 2) / most));
  }
}

/// A palette of greys, as bitmaps have it, leaves a grey image.
void PhotoFile::Read_Palette() {
  const GDALColorTable* const table = dataset_->GetRasterBand(1)->GetColorTable();
  if (table == nullptr) return;
  palette_.resize(256);
  for (int i = 0; i < std::min(256, table->GetColorEntryCount()); ++i) {
    const GDALColorEntry* const entry = table->GetColorEntry(i);
    palette_[static_cast<std::size_t>(i)] = {static_cast<std::uint8_t>(entry->c1),
                                             static_cast<std::uint8_t>(entry->c2),
                                             static_cast<std::uint8_t>(entry->c3)};
    is_colour_ = is_colour_ || entry->c1 != entry->c2 || entry->c1 != entry->c3;
  }
}

PhotoFile::~PhotoFile() = default;

std::string PhotoFile::Utc() const {
  std::string satellites = Satellite_Time(*dataset_);
  if (Julian_Day(satellites)) return satellites;
  const std::string zone = Metadata(*dataset_, "EXIF_OffsetTimeOriginal");
  std::string local = Iso_Date(Metadata(*dataset_, "EXIF_DateTimeOriginal"));
  if (!zone.empty() && Julian_Day(local + zone)) return local + zone;
  return "";
}

int PhotoFile::Rows_At_Once() const {
  int block_width = 0;
  int block_height = 1;
  dataset_->GetRasterBand(1)->GetBlockSize(&block_width, &block_height);
  const std::int64_t row = static_cast<std::int64_t>(width_) * Bands();
  const auto rows = static_cast<int>(std::clamp<std::int64_t>(kBytesAtOnce / row, 1, height_));
  return std::clamp(rows / block_height, 1, height_) * std::min(block_height, height_);
}

void PhotoFile::Refuse_Damage(const PixelWindow& window) const {
  throw Refused(name_ + ": the image cannot be read between rows " +
                std::to_string(window.first_row) + " and " +
                std::to_string(window.first_row + window.height - 1) + ": " +
                Gdal_Message("it is damaged or cut short"));
}

void PhotoFile::Look_Up_Palette(std::span<std::uint8_t> pixels) const {
  if (!is_colour_) {
    for (std::uint8_t& pixel : pixels) pixel = palette_[pixel][0];
    return;
  }
  // The indices stand at the end of the span, so that no index is overwritten before its turn.
  const std::size_t count = pixels.size() / 3;
  const std::uint8_t* const indices = pixels.data() + 2 * count;
  for (std::size_t i = 0; i < count; ++i) {
    const std::array<std::uint8_t, 3> colour = palette_[indices[i]];
    std::copy(colour.begin(), colour.end(), pixels.begin() + static_cast<std::ptrdiff_t>(3 * i));
  }
}

void PhotoFile::Read(const PixelWindow& window, std::span<std::uint8_t> pixels) const {
  CPLErrorReset();
  const int bands = palette_.empty() ? Bands() : 1;
  const std::size_t offset = palette_.empty() || !is_colour_ ? 0 : pixels.size() / 3 * 2;
  const CPLErr failed =
      dataset_->RasterIO(GF_Read, window.first_col, window.first_row, window.width, window.height,
                         pixels.data() + offset, window.width, window.height, GDT_Byte, bands,
                         nullptr, bands, static_cast<GSpacing>(bands) * window.width, 1, nullptr);
  if (failed != CE_None) Refuse_Damage(window);
  if (!palette_.empty()) Look_Up_Palette(pixels);
}

void PhotoFile::Read(const PixelWindow& window, std::span<std::int32_t> pixels) const {
  CPLErrorReset();
  constexpr int kBytes = sizeof(std::int32_t);
  const GSpacing pixel = static_cast<GSpacing>(Bands()) * kBytes;
  const CPLErr failed =
      dataset_->RasterIO(GF_Read, window.first_col, window.first_row, window.width, window.height,
                         pixels.data(), window.width, window.height, GDT_Int32, Bands(), nullptr,
                         pixel, pixel * window.width, kBytes, nullptr);
  if (failed != CE_None) Refuse_Damage(window);
}

GreyStretch Percentile_Stretch(const PhotoFile& file, double low_percent, double high_percent) {
  constexpr std::int32_t kLeast = -32768;
  constexpr std::size_t kValues = 98304;  // of signed and unsigned 16-bit numbers
  std::vector<std::uint64_t> counts(kValues);
  std::vector<std::int32_t> pixels;
  for (int row = 0; row < file.Height(); row += file.Rows_At_Once()) {
    const int rows = std::min(file.Rows_At_Once(), file.Height() - row);
    pixels.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(file.Width()) *
                  static_cast<std::size_t>(file.Bands()));
    file.Read({0, row, file.Width(), rows}, std::span<std::int32_t>(pixels));
    for (const std::int32_t value : pixels) ++counts[static_cast<std::size_t>(value - kLeast)];
  }
  const std::uint64_t total = static_cast<std::uint64_t>(file.Width()) *
                              static_cast<std::uint64_t>(file.Height()) *
                              static_cast<std::uint64_t>(file.Bands());
  const auto value_at = [&](std::uint64_t rank) {
    std::uint64_t passed = 0;
    for (std::size_t i = 0; i < kValues; ++i) {
      passed += counts[i];
      if (passed > rank) return static_cast<double>(i) + kLeast;
    }
    return static_cast<double>(kValues - 1) + kLeast;
  };
  const auto percentile = [&](double percent) {
    const double rank = percent / 100 * static_cast<double>(total - 1);
    const double whole = std::floor(rank);
    const double below = value_at(static_cast<std::uint64_t>(whole));
    const double above = value_at(std::min(total - 1, static_cast<std::uint64_t>(whole) + 1));
    return below + (rank - whole) * (above - below);
  };
  return {percentile(low_percent), percentile(high_percent)};
}

}  // namespace sylvomex
