// SPDX-License-Identifier: MIT
// Single-byte pixels from a window of a raw file. Columns and rows are those of the raw file, rows
// from the top.
#pragma once

#include <cstdint>
#include <vector>

#include "imageblock/image_record.h"
#include "imageblock/pane_renderer.h"
#include "imageblock/raw_rows.h"

namespace sylvomex {

/// A window; first and last column and row are both included.
struct RawWindow {
  int first_col = 0;
  int last_col = 0;
  int top_row = 0;
  int bottom_row = 0;

  [[nodiscard]] int Width() const { return last_col - first_col + 1; }
  [[nodiscard]] int Height() const { return bottom_row - top_row + 1; }
};

/// How a colour pixel becomes one byte: its middle byte, or the mean of its three bytes, half to
/// even.
enum class ColourRule { MiddleByte, Mean };

/// The window's pixels, row by row from the top; grey pixels are taken unchanged.
/// RunTimeError(SubscriptOutOfRange) naming the window and the raw file's size when the window
/// leaves the raw file or is empty, RunTimeError(InputPastEnd) for a file shorter than its header
/// states, RunTimeError(BadContent) for a ColorFlag other than 0 and 1.
std::vector<std::uint8_t> Read_Raw_Window(const ImageRecord& image, const RawPixels& raw,
                                          const RawWindow& window, ColourRule rule);

/// Reads single pixels of an image's raw file.
class RawPixelReader {
 public:
  /// Throws as Read_Raw_Window, except for the window's errors.
  RawPixelReader(const ImageRecord& image, const RawPixels& raw, ColourRule rule);

  /// Whether the raw file contains this pixel.
  [[nodiscard]] bool Holds(int col, int raw_row) const;

  /// One pixel; the raw file must contain it.
  [[nodiscard]] std::uint8_t At(int col, int raw_row) const;

 private:
  RawPixels raw_;
  RawLayout layout_;
  ColourRule rule_;
};

}  // namespace sylvomex
