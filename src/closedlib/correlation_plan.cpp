// SPDX-License-Identifier: MIT
#include "closedlib/correlation_plan.h"

#include <algorithm>

#include "closedlib/wide_integer.h"

namespace sylvomex {
namespace {

/// The part of the template inside the box.
class Box {
 public:
  Box(std::span<const std::uint8_t> pattern, int width, const CorrelationPlan& plan)
      : pattern_(pattern), width_(width), plan_(plan) {}

  [[nodiscard]] int At(int col, int row) const {
    return pattern_[static_cast<std::size_t>(plan_.box_row + row) *
                        static_cast<std::size_t>(width_) +
                    static_cast<std::size_t>(plan_.box_col + col)];
  }

  /// Whether the mask of the band contains the pixel; row is counted from the band's first.
  [[nodiscard]] bool Holds(const MaskBand& band, int col, int row) const {
    return row >= 0 && row < band.rows && At(col, band.first_row + row) != 0;
  }

  [[nodiscard]] int Row_Pixels(int row) const {
    int pixels = 0;
    for (int col = 0; col < plan_.cols; ++col) pixels += At(col, row) != 0;
    return pixels;
  }

 private:
  std::span<const std::uint8_t> pattern_;
  int width_;
  const CorrelationPlan& plan_;
};

void Find_Box(std::span<const std::uint8_t> pattern, int width, int height, CorrelationPlan& plan) {
  int first_col = width, last_col = -1, first_row = height, last_row = -1;
  for (int row = 0; row < height; ++row) {
    for (int col = 0; col < width; ++col) {
      if (pattern[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(col)] == 0) {
        continue;
      }
      first_col = std::min(first_col, col);
      last_col = std::max(last_col, col);
      first_row = std::min(first_row, row);
      last_row = row;
    }
  }
  if (last_col < 0) return;
  plan.box_col = first_col;
  plan.box_row = first_row;
  plan.cols = last_col - first_col + 1;
  plan.rows = last_row - first_row + 1;
}

void Add_Up(const Box& box, CorrelationPlan& plan) {
  std::int64_t squares = 0;
  for (int row = 0; row < plan.rows; ++row) {
    for (int col = 0; col < plan.cols; ++col) {
      const int value = box.At(col, row);
      plan.pixels += value != 0;
      plan.sum += value;
      squares += value * value;
    }
  }
  plan.variance = static_cast<double>(Int128{plan.pixels} * squares - Int128{plan.sum} * plan.sum);
}

void Cut_Bands(const Box& box, CorrelationPlan& plan) {
  std::int64_t pixels = MaskBand::kMostPixels;
  for (int row = 0; row < plan.rows; ++row) {
    const int more = box.Row_Pixels(row);
    if (pixels + more > MaskBand::kMostPixels) {
      plan.bands.emplace_back().first_row = row;
      pixels = 0;
    }
    pixels += more;
    ++plan.bands.back().rows;
  }
}

void Fill_Taps(const Box& box, int cols, MaskBand& band) {
  band.tap_cols = (cols + kTapGroup - 1) / kTapGroup * kTapGroup;
  const auto tap_cols = static_cast<std::size_t>(band.tap_cols);
  band.taps.assign(static_cast<std::size_t>(band.rows + 2 * (kBlockRows - 1)) * tap_cols, 0);
  for (int row = 0; row < band.rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      if (!box.Holds(band, col, row)) continue;
      band.taps[static_cast<std::size_t>(row + kBlockRows - 1) * tap_cols +
                static_cast<std::size_t>(col)] =
          static_cast<std::int8_t>(box.At(col, band.first_row + row) - kTapOffset);
    }
  }
  band.wide_taps.assign(band.taps.begin(), band.taps.end());
}

void Fill_Reach(const Box& box, int cols, MaskBand& band) {
  for (int pixel_row = 0; pixel_row < band.rows + kBlockRows - 1; ++pixel_row) {
    int first = cols, last = -1;
    for (int row = pixel_row - kBlockRows + 1; row <= pixel_row; ++row) {
      for (int col = 0; col < cols; ++col) {
        if (!box.Holds(band, col, row)) continue;
        first = std::min(first, col);
        last = std::max(last, col);
      }
    }
    band.reach.push_back(last < 0 ? GroupRange{}
                                  : GroupRange{first / kTapGroup, last / kTapGroup + 1});
  }
}

void Fill_Edges(const Box& box, int cols, int stride, MaskBand& band) {
  for (int row = 0; row < band.rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      if (!box.Holds(band, col, row)) continue;
      band.all.push_back(row * stride + col);
      if (!box.Holds(band, col, row - 1)) band.leaving.push_back(row * stride + col);
      if (!box.Holds(band, col, row + 1)) band.entering.push_back((row + 1) * stride + col);
    }
  }
}

/// Large enough to load a vector of 64 pixels from any window of a tile and any group of taps.
int Tile_Stride(int cols) { return (kTileCols + cols + 2 * kTapGroup + 63) / 64 * 64; }

}  // namespace

CorrelationPlan Plan_Correlation(std::span<const std::uint8_t> pattern, int width, int height) {
  CorrelationPlan plan;
  Find_Box(pattern, width, height, plan);
  plan.stride = Tile_Stride(plan.cols);
  const Box box(pattern, width, plan);
  Add_Up(box, plan);
  Cut_Bands(box, plan);
  for (MaskBand& band : plan.bands) {
    Fill_Taps(box, plan.cols, band);
    Fill_Reach(box, plan.cols, band);
    Fill_Edges(box, plan.cols, plan.stride, band);
  }
  return plan;
}

}  // namespace sylvomex
