// SPDX-License-Identifier: MIT
#include "surfaces/window_raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

bool Is_Grey(const WindowRaster& raster) { return raster.color_flag == 0; }
bool Is_Colour(const WindowRaster& raster) { return raster.color_flag == 1; }

std::int64_t Bytes_Of_Pixel(const WindowRaster& raster) { return Is_Colour(raster) ? 3 : 1; }

std::int64_t Rows_At_Hand(const WindowRaster& raster) {
  const std::int64_t row_bytes = raster.columns * Bytes_Of_Pixel(raster);
  if (row_bytes <= 0) return 0;
  const auto in_file = static_cast<std::int64_t>(raster.bytes.size()) / row_bytes;
  return std::min<std::int64_t>(in_file, To_Int32(std::floor(raster.sub_height)));
}

RowRange Usable_Rows(const WindowRaster& raster) {
  if (!raster.strip) return {0, raster.rows - 1};
  return {std::max<std::int64_t>(raster.strip->first, 0),
          std::min(raster.strip->last, raster.rows - 1)};
}

std::string Range_Text(double first, int side) {
  return Plain_Text(first) + " to " + Plain_Text(first + side - 1);
}

std::string Limits_Text(const WindowRaster& raster) {
  const std::string size =
      Plain_Text(raster.sub_width) + " x " + Plain_Text(raster.sub_height) + " pixels";
  if (raster.strip) {
    return "the strip of rows " + std::to_string(raster.strip->first) + " to " +
           std::to_string(raster.strip->last) + " of the raster of " + size;
  }
  if (static_cast<double>(raster.rows) >= std::floor(raster.sub_height)) {
    return "the raster of " + size;
  }
  return "the raw file, which has " + std::to_string(raster.rows) + " rows of the raster of " +
         size;
}

const std::uint8_t* Pixel_At(const WindowRaster& raster, const WindowCorner& corner) {
  return raster.bytes.data() +
         (corner.raw_row * raster.columns + corner.col) * Bytes_Of_Pixel(raster);
}

/// One row of a window: grey bytes or the middle bytes of colour pixels.
void Copy_Row(const WindowRaster& raster, const std::uint8_t* pixels, int side, std::uint8_t* out) {
  if (Is_Grey(raster)) {
    std::memcpy(out, pixels, static_cast<std::size_t>(side));
    return;
  }
  for (int col = 0; col < side; ++col) out[col] = pixels[3 * col + 1];
}

}  // namespace

WindowRaster Make_Window_Raster(const ImageRecord& image, std::span<const std::uint8_t> bytes) {
  WindowRaster raster;
  raster.image_id = image.ImageId;
  raster.color_flag = image.ColorFlag;
  raster.bytes = bytes;
  raster.columns = To_Int32(image.SubWidth);
  raster.sub_width = image.SubWidth;
  raster.sub_height = image.SubHeight;
  raster.rows = Rows_At_Hand(raster);
  return raster;
}

WindowCorner Locate_Window(const WindowRaster& raster, const PixelPosition& middle, int side) {
  if (!Is_Grey(raster) && !Is_Colour(raster)) return {};
  const double top = Round_Half_Even(Raw_Row(raster.sub_height, middle.row) - side / 2.0);
  const double left = Round_Half_Even(middle.col - side / 2.0);
  const RowRange rows = Usable_Rows(raster);
  const bool inside = left >= 0 && left + side <= static_cast<double>(raster.columns) &&
                      top >= static_cast<double>(rows.first) &&
                      top + side - 1 <= static_cast<double>(rows.last);
  if (inside) return {static_cast<std::int64_t>(left), static_cast<std::int64_t>(top)};
  throw RunTimeError(Failure::SubscriptOutOfRange,
                     "image " + Plain_Text(raster.image_id) + ": the window of columns " +
                         Range_Text(left, side) + " and rows " + Range_Text(top, side) +
                         " leaves " + Limits_Text(raster));
}

std::vector<std::uint8_t> Cut_Window(const WindowRaster& raster, const WindowCorner& corner,
                                     int side) {
  const auto width = static_cast<std::size_t>(side);
  std::vector<std::uint8_t> pixels(width * width);
  if (!Is_Grey(raster) && !Is_Colour(raster)) return pixels;
  const std::uint8_t* row = Pixel_At(raster, corner);
  for (std::size_t at = 0; at < pixels.size(); at += width) {
    Copy_Row(raster, row, side, &pixels[at]);
    row += raster.columns * Bytes_Of_Pixel(raster);
  }
  return pixels;
}

WindowSet::WindowSet(const WindowRaster& raster, int side, std::size_t most_windows)
    : raster_(raster), side_(side), most_windows_(most_windows) {
  windows_.reserve(most_windows);
}

// The comparison reads beyond the side, but not beyond the file.
bool WindowSet::Lies_In_Place(const WindowCorner& corner) const {
  if (!Is_Grey(raster_)) return false;
  const std::int64_t last_row = (corner.raw_row + side_ - 1) * raster_.columns + corner.col;
  return last_row + kMostWindowSide <= static_cast<std::int64_t>(raster_.bytes.size());
}

void WindowSet::Add_Copy(const WindowCorner& corner) {
  const std::size_t copy_bytes = static_cast<std::size_t>(side_) * kMostWindowSide;
  copies_.resize(most_windows_ * copy_bytes);
  std::uint8_t* const copy = copies_.data() + copied_ * copy_bytes;
  ++copied_;
  windows_.push_back({copy, kMostWindowSide});
  if (!Is_Grey(raster_) && !Is_Colour(raster_)) return;
  const std::uint8_t* row = Pixel_At(raster_, corner);
  for (int r = 0; r < side_; ++r) {
    Copy_Row(raster_, row, side_, copy + r * kMostWindowSide);
    row += raster_.columns * Bytes_Of_Pixel(raster_);
  }
}

void WindowSet::Add(const WindowCorner& corner) {
  if (Lies_In_Place(corner)) {
    windows_.push_back({Pixel_At(raster_, corner), raster_.columns});
  } else {
    Add_Copy(corner);
  }
}

}  // namespace sylvomex
