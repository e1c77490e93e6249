// SPDX-License-Identifier: MIT
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <future>

#include "interchange/output_file.h"
#include "interchange/photo_pixels.h"

namespace sylvomex {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::size_t Size_Of(const PixelWindow& window, int bands) {
  return static_cast<std::size_t>(window.width) * static_cast<std::size_t>(window.height) *
         static_cast<std::size_t>(bands);
}

std::uint8_t Stretched(std::int32_t value, const GreyStretch& stretch) {
  if (!(stretch.high > stretch.low)) return value > stretch.low ? 255 : 0;
  const double grey = (value - stretch.low) / (stretch.high - stretch.low) * 255;
  return static_cast<std::uint8_t>(std::lrint(std::clamp(grey, 0.0, 255.0)));
}

/// Rows of a window in 8 bits.
void Read_Grey(const PhotoFile& file, const PixelWindow& window, const GreyStretch& stretch,
               Bytes& bytes) {
  bytes.resize(Size_Of(window, file.Bands()));
  if (!file.Has_16_Bits()) {
    file.Read(window, std::span<std::uint8_t>(bytes));
    return;
  }
  std::vector<std::int32_t> values(bytes.size());
  file.Read(window, std::span<std::int32_t>(values));
  std::transform(values.begin(), values.end(), bytes.begin(),
                 [&](std::int32_t value) { return Stretched(value, stretch); });
}

/// Reads the next rows while the last ones are written.
void Copy_Window(const PhotoFile& file, const PixelWindow& window, const GreyStretch& stretch,
                 OutputFile& out) {
  Bytes reading;
  Bytes writing;
  std::future<void> written;
  const int step = file.Rows_At_Once();
  for (int row = 0; row < window.height; row += step) {
    const int rows = std::min(step, window.height - row);
    Read_Grey(file, {window.first_col, window.first_row + row, window.width, rows}, stretch,
              reading);
    if (written.valid()) written.get();
    std::swap(reading, writing);
    written = std::async(std::launch::async,
                         [&out, &writing] { out.Write(std::span<const std::uint8_t>(writing)); });
  }
  if (written.valid()) written.get();
}

/// A whole photograph in memory.
struct Raster {
  int width = 0, height = 0, bands = 0;
  Bytes pixels;

  [[nodiscard]] const std::uint8_t* At(int col, int row) const {
    return pixels.data() + (static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                            static_cast<std::size_t>(col)) *
                               static_cast<std::size_t>(bands);
  }
};

/// Bilinear between the middles of pixels; in the outer half of a border pixel its value.
void Sample(const Raster& source, const PhotoPixel& at, std::uint8_t* pixel) {
  const bool is_inside =
      at.col >= 0 && at.col < source.width && at.row >= 0 && at.row < source.height;
  if (!is_inside) {
    std::fill_n(pixel, source.bands, std::uint8_t{0});
    return;
  }
  const double col = std::clamp(at.col - 0.5, 0.0, source.width - 1.0);
  const double row = std::clamp(at.row - 0.5, 0.0, source.height - 1.0);
  const int left = std::min(static_cast<int>(col), std::max(0, source.width - 2));
  const int top = std::min(static_cast<int>(row), std::max(0, source.height - 2));
  const int right = std::min(left + 1, source.width - 1);
  const int bottom = std::min(top + 1, source.height - 1);
  const double across = col - left;
  const double down = row - top;
  const std::uint8_t* const corners[] = {source.At(left, top), source.At(right, top),
                                         source.At(left, bottom), source.At(right, bottom)};
  for (int band = 0; band < source.bands; ++band) {
    const double upper = corners[0][band] + across * (corners[1][band] - corners[0][band]);
    const double lower = corners[2][band] + across * (corners[3][band] - corners[2][band]);
    pixel[band] = static_cast<std::uint8_t>(std::lrint(upper + down * (lower - upper)));
  }
}

void Write_Resampled(const PhotoFile& file, const OrientedPhoto& photo, const PixelWindow& window,
                     const GreyStretch& stretch, OutputFile& out) {
  Raster source{file.Width(), file.Height(), file.Bands(), {}};
  source.pixels.reserve(Size_Of({0, 0, file.Width(), file.Height()}, file.Bands()));
  const int step = file.Rows_At_Once();
  Bytes rows;
  for (int first = 0; first < file.Height(); first += step) {
    Read_Grey(file, {0, first, file.Width(), std::min(step, file.Height() - first)}, stretch, rows);
    source.pixels.insert(source.pixels.end(), rows.begin(), rows.end());
  }
  const std::size_t row_bytes = Size_Of({0, 0, window.width, 1}, source.bands);
  for (int first = 0; first < window.height; first += step) {
    const int last = std::min(first + step, window.height);
    rows.resize(static_cast<std::size_t>(last - first) * row_bytes);
    tbb::parallel_for(first, last, [&](int row) {
      std::uint8_t* pixel = rows.data() + static_cast<std::size_t>(row - first) * row_bytes;
      for (int col = 0; col < window.width; ++col, pixel += source.bands) {
        const PhotoPixel ideal{window.first_col + col + 0.5, window.first_row + row + 0.5};
        Sample(source, Real_Of_Ideal(photo, ideal), pixel);
      }
    });
    out.Write(std::span<const std::uint8_t>(rows));
  }
}

}  // namespace

void Write_Raw_Photo(const PhotoFile& file, const OrientedPhoto& photo, const PixelWindow& window,
                     const GreyStretch& stretch, const std::filesystem::path& path,
                     const std::string& name) {
  OutputFile out(path, name);
  if (photo.lens.Is_Ideal()) {
    Copy_Window(file, window, stretch, out);
  } else {
    Write_Resampled(file, photo, window, stretch, out);
  }
  out.Close();
}

}  // namespace sylvomex
