// SPDX-License-Identifier: MIT
// Square grey windows of one image's raw file. Columns and rows are those of the raw file, rows
// from the top; the mapped file is read where it lies.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "closedlib/moving_windows.h"
#include "imageblock/image_record.h"
#include "imageblock/pixel_position.h"

namespace sylvomex {

struct RowRange {
  std::int64_t first = 0;
  std::int64_t last = -1;  // included
};

/// What windows of an image are cut from.
struct WindowRaster {
  std::int32_t image_id = 0;
  std::uint8_t color_flag = 0;  // 0 grey, 1 colour, of which the middle byte counts; windows of
                                // any other image stay black
  std::span<const std::uint8_t> bytes;  // the whole raw file, without padding
  std::int64_t columns = 0;
  std::int64_t rows = 0;  // that the file has in full, as far as its header counts them
  double sub_width = 0, sub_height = 0;
  std::optional<RowRange> strip;  // the only rows of which windows are cut, all without it
};

WindowRaster Make_Window_Raster(const ImageRecord& image, std::span<const std::uint8_t> bytes);

/// Raw-file row, counted from the top, of a full-image row that is counted from the bottom; the
/// origin of a sub-image takes no part.
inline double Raw_Row(double sub_height, double row) { return sub_height - 1 - row; }

/// Upper left pixel of a window.
struct WindowCorner {
  std::int64_t col = 0;
  std::int64_t raw_row = 0;
};

/// The window of side x side pixels whose middle is a full-image position: half a side up and
/// left of it, rounded half to even. RunTimeError(SubscriptOutOfRange) naming image, columns and
/// rows when it leaves the raw file or the strip.
WindowCorner Locate_Window(const WindowRaster& raster, const PixelPosition& middle, int side);

/// The window's grey values, row by row.
std::vector<std::uint8_t> Cut_Window(const WindowRaster& raster, const WindowCorner& corner,
                                     int side);

/// Makes the windows of one search ready for the comparison: in place where the raw file allows
/// it, else as copies.
class WindowSet {
 public:
  WindowSet(const WindowRaster& raster, int side, std::size_t most_windows);

  void Add(const WindowCorner& corner);

  [[nodiscard]] std::span<const MovingWindow> Windows() const { return windows_; }

 private:
  [[nodiscard]] bool Lies_In_Place(const WindowCorner& corner) const;
  void Add_Copy(const WindowCorner& corner);

  const WindowRaster& raster_;
  int side_;
  std::vector<MovingWindow> windows_;
  std::size_t most_windows_;
  std::vector<std::uint8_t> copies_;  // sized once: the windows point into it
  std::size_t copied_ = 0;
};

}  // namespace sylvomex
