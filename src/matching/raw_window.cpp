// SPDX-License-Identifier: MIT
#include "matching/raw_window.h"

#include <span>
#include <string>

#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

std::string Image_Name(const ImageRecord& image) { return "image " + Plain_Text(image.ImageId); }

void Require_Inside(const ImageRecord& image, const RawWindow& window) {
  const bool inside =
      window.first_col >= 0 && window.top_row >= 0 && window.last_col <= image.SubWidth - 1 &&
      window.bottom_row <= image.SubHeight - 1 && window.Width() > 0 && window.Height() > 0;
  if (inside) return;
  throw RunTimeError(
      Failure::SubscriptOutOfRange,
      Image_Name(image) + ": the window of columns " + std::to_string(window.first_col) + " to " +
          std::to_string(window.last_col) + " and rows " + std::to_string(window.top_row) + " to " +
          std::to_string(window.bottom_row) + " leaves the raw file of " +
          Plain_Text(image.SubWidth) + " x " + Plain_Text(image.SubHeight) + " pixels");
}

RawLayout Layout_Of(const ImageRecord& image) {
  if (image.ColorFlag == 0) return RawLayout::Grey;
  if (image.ColorFlag == 1) return RawLayout::Colour;
  throw RunTimeError(Failure::BadContent, Image_Name(image) + ": ColorFlag is " +
                                              std::to_string(image.ColorFlag) +
                                              ", grey is 0 and colour 1");
}

// A third of an integer is never a tie, so plain rounding suffices.
std::uint8_t Mean_Of_Three(std::span<const std::uint8_t> pixel) {
  return static_cast<std::uint8_t>((pixel[0] + pixel[1] + pixel[2] + 1) / 3);
}

void Append_Row(std::span<const std::uint8_t> row, RawLayout layout, ColourRule rule,
                std::vector<std::uint8_t>& pixels) {
  if (layout == RawLayout::Grey) {
    pixels.insert(pixels.end(), row.begin(), row.end());
    return;
  }
  for (std::size_t at = 0; at + 2 < row.size(); at += 3) {
    pixels.push_back(rule == ColourRule::Mean ? Mean_Of_Three(row.subspan(at, 3)) : row[at + 1]);
  }
}

}  // namespace

RawPixelReader::RawPixelReader(const ImageRecord& image, const RawPixels& raw, ColourRule rule)
    : raw_(raw), layout_(Layout_Of(image)), rule_(rule) {
  Check_Raw_Length(raw, layout_);
}

bool RawPixelReader::Holds(int col, int raw_row) const {
  return col >= 0 && raw_row >= 0 && col <= raw_.sub_width - 1 && raw_row <= raw_.sub_height - 1;
}

std::uint8_t RawPixelReader::At(int col, int raw_row) const {
  const std::span<const std::uint8_t> pixel =
      Raw_Bytes(raw_, Raw_Position(raw_, layout_, col, raw_row), Bytes_Per_Pixel(layout_));
  if (layout_ == RawLayout::Grey) return pixel[0];
  return rule_ == ColourRule::Mean ? Mean_Of_Three(pixel) : pixel[1];
}

std::vector<std::uint8_t> Read_Raw_Window(const ImageRecord& image, const RawPixels& raw,
                                          const RawWindow& window, ColourRule rule) {
  const RawLayout layout = Layout_Of(image);
  Require_Inside(image, window);
  Check_Raw_Length(raw, layout);
  std::vector<std::uint8_t> pixels;
  pixels.reserve(static_cast<std::size_t>(window.Width()) *
                 static_cast<std::size_t>(window.Height()));
  const std::int64_t row_bytes = std::int64_t{window.Width()} * Bytes_Per_Pixel(layout);
  for (int row = window.top_row; row <= window.bottom_row; ++row) {
    Append_Row(Raw_Bytes(raw, Raw_Position(raw, layout, window.first_col, row), row_bytes), layout,
               rule, pixels);
  }
  return pixels;
}

}  // namespace sylvomex
