// SPDX-License-Identifier: MIT
#include "closedlib/anaglyph_picture.h"

#include <algorithm>
#include <string>

#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

void Require(std::uint64_t have, std::uint64_t wanted, const char* what) {
  if (have >= wanted) return;
  throw RunTimeError(Failure::SubscriptOutOfRange, std::string(what) + " of " +
                                                       std::to_string(have) + " bytes, " +
                                                       std::to_string(wanted) + " are needed");
}

std::uint64_t Bytes_Of(std::int64_t width, std::int64_t height, std::int64_t pixel_bytes) {
  return static_cast<std::uint64_t>(width * height * pixel_bytes);
}

/// Copies one channel of a window's row: source channel `from` to byte `to` of each pixel.
void Copy_Channel(const AnaglyphSide& side, std::int64_t picture_row, std::int32_t width, int from,
                  int to, std::uint8_t* bgr) {
  const std::int64_t row = side.first_row + picture_row;
  if (row < 0 || row >= side.height) return;
  const std::int64_t first = std::max<std::int64_t>(0, -std::int64_t{side.first_col});
  const std::int64_t last =
      std::min<std::int64_t>(width, std::int64_t{side.width} - side.first_col);
  const std::int64_t step = side.colour ? 3 : 1;
  const std::int64_t start = (row * side.width + side.first_col) * step + (side.colour ? from : 0);
  if (first >= last) return;
  const std::uint8_t* source = side.bytes.data() + start + first * step;
  std::uint8_t* target = bgr + 3 * first + to;
  for (std::int64_t k = first; k < last; ++k, source += step, target += 3) *target = *source;
}

}  // namespace

void MYFUNC_CREATEBMP(const AnaglyphSide& left, const AnaglyphSide& right, std::int32_t width,
                      std::int32_t height, std::span<std::uint8_t> bgr) {
  constexpr int kRed = 0, kGreen = 1, kBlue = 2;  // channels of a raster
  for (const AnaglyphSide* side : {&left, &right}) {
    Require(side->bytes.size(), Bytes_Of(side->width, side->height, side->colour ? 3 : 1),
            "a raster");
  }
  Require(bgr.size(), Bytes_Of(width, height, 3), "a picture");
  std::fill(bgr.begin(), bgr.end(), std::uint8_t{0});
  for (std::int64_t row = 0; row < height; ++row) {
    std::uint8_t* picture_row = bgr.data() + 3 * std::int64_t{width} * row;
    Copy_Channel(left, row, width, kRed, 2, picture_row);
    Copy_Channel(right, row, width, kGreen, 1, picture_row);
    Copy_Channel(right, row, width, kBlue, 0, picture_row);
  }
}

}  // namespace sylvomex
