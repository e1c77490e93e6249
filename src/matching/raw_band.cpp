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

std::uint8_t Middle_Byte(const RawBand& band, std::int64_t col, std::int64_t band_row) {
  const auto index = static_cast<std::size_t>((band_row * band.columns + col) * kBytesPerPixel + 1);
  return index < band.bytes.size() ? band.bytes[index] : std::uint8_t{0};
}

}  // namespace

RawBand Read_Band(const FilePath& raw_file, double sub_width, std::int32_t first_row,
                  std::int32_t rows) {
  RawBand band;
  band.first_row = first_row;
  band.columns = std::max<std::int32_t>(To_Int16(sub_width), 0);
  band.rows = rows;
  const std::int64_t row_bytes = band.columns * kBytesPerPixel;
  const std::int64_t offset = first_row * row_bytes;
  const PositionalFile file(raw_file);
  const std::int64_t left = static_cast<std::int64_t>(file.Size()) - offset;
  const std::int64_t wanted = std::max<std::int64_t>(std::min(left, rows * row_bytes), 0);
  band.bytes.resize(static_cast<std::size_t>(wanted));
  band.bytes.resize(file.Read_At(offset, band.bytes));
  return band;
}

void Cut_Window(const RawBand& band, std::int64_t col, std::int64_t band_row,
                const ImageTemplate& pattern, std::vector<std::uint8_t>& window) {
  Require_Inside("columns", col, pattern.width, band.columns);
  Require_Inside("band rows", band_row, pattern.height, band.rows);
  window.clear();
  for (std::int64_t row = band_row; row < band_row + pattern.height; ++row) {
    for (std::int64_t c = col; c < col + pattern.width; ++c) {
      window.push_back(Middle_Byte(band, c, row));
    }
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
