// SPDX-License-Identifier: MIT
#include "matching/raw_band.h"

#include <algorithm>
#include <string>

#include "closedlib/window_correlation.h"
#include "platform/files.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr std::int64_t kBytesPerPixel = 3;

void Require_Inside(const char* what, std::int64_t first, std::int64_t count, std::int64_t room) {
  if (first >= 0 && first + count <= room) return;
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     std::string("a template window at ") + what + " " + std::to_string(first) +
                         " to " + std::to_string(first + count - 1) +
                         " leaves the band of the raw file, 0 to " + std::to_string(room - 1));
}

}  // namespace

bool Is_Band_In_Raster(const ImageRecord& image, double first_row, std::int32_t rows) {
  return first_row >= 0 && first_row + rows <= image.SubHeight;
}

RawBand Read_Band(const FilePath& raw_file, double sub_width, std::int32_t first_row,
                  std::int32_t rows) {
  RawBand band;
  band.first_row = first_row;
  band.columns = std::max<std::int32_t>(To_Int16(sub_width), 0);
  band.rows = rows;
  const std::int64_t row_bytes = band.columns * kBytesPerPixel;
  band.bytes.resize(static_cast<std::size_t>(rows * row_bytes));
  PositionalFile(raw_file).Read_At(first_row * row_bytes, band.bytes);
  return band;
}

void Cut_Window(const RawBand& band, std::int64_t col, std::int64_t band_row,
                const ImageTemplate& pattern, std::vector<std::uint8_t>& window) {
  Require_Inside("columns", col, pattern.width, band.columns);
  Require_Inside("band rows", band_row, pattern.height, band.rows);
  const auto width = static_cast<std::size_t>(pattern.width);
  const auto height = static_cast<std::size_t>(pattern.height);
  window.resize(width * height);
  std::uint8_t* to = window.data();
  for (std::size_t row = 0; row < height; ++row, to += width) {
    const std::int64_t pixel = (band_row + static_cast<std::int64_t>(row)) * band.columns + col;
    const std::uint8_t* from = band.bytes.data() + pixel * kBytesPerPixel + 1;
    for (std::size_t i = 0; i < width; ++i) to[i] = from[i * kBytesPerPixel];
  }
}

double Best_Correlation_Around(const RawBand& band, std::int64_t col, std::int64_t band_row,
                               int reach, const ImageTemplate& pattern) {
  double best = -1;
  std::vector<std::uint8_t> window;
  for (int down = -reach; down <= reach; ++down) {
    for (int across = -reach; across <= reach; ++across) {
      Cut_Window(band, col + across, band_row + down, pattern, window);
      const double mean = MYFUNC_TEMPMEANSTD(window).mean;
      best = std::max(best, MYFUNC_CCORB(window, pattern.pixels, mean));
    }
  }
  return best;
}

}  // namespace sylvomex
