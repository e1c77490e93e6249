// SPDX-License-Identifier: MIT
// A template prepared for correlation: sums over its non-zero pixels (the mask), and the lists
// traversed by the inner loops.
//
// Frames: the box is the smallest rectangle around the mask; a window is the box placed on the
// patch, identified by the patch column and row (from the top) of the box's first pixel. Windows
// are processed in tiles of kTileCols x any number of rows; a tile holds the patch pixels that
// its windows cover, with `stride` pixels per row.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace sylvomex {

inline constexpr int kTileCols = 64;    // windows side by side in a tile
inline constexpr int kBlockRows = 6;    // rows of windows that share the loads of the patch
inline constexpr int kTapGroup = 4;     // template columns processed at once
inline constexpr int kTapOffset = 128;  // template values minus this fit a signed byte

/// Groups first to last - 1 of a row of taps.
struct GroupRange {
  int first = 0, last = 0;
};

/// Consecutive rows of the mask whose sums fit in 32 bits.
struct MaskBand {
  static constexpr std::int64_t kMostPixels = 65536;

  int first_row = 0;  // of the box
  int rows = 0;

  // Template values minus kTapOffset, 0 outside the mask: tap_cols per row, kBlockRows - 1 rows of
  // zeros before and after. Row r of the band starts at (r + kBlockRows - 1) tap_cols.
  int tap_cols = 0;
  std::vector<std::int8_t> taps;
  std::vector<std::int16_t> wide_taps;  // the same values

  // For each of the rows + kBlockRows - 1 pixel rows under a block: the range of groups that are
  // non-zero for some row of the block.
  std::vector<GroupRange> reach;

  // Offsets in a tile, counted from the first pixel of a window: of all pixels of the mask, and of
  // those that enter and leave when the window moves down by one row.
  std::vector<std::int32_t> all, entering, leaving;
};

struct CorrelationPlan {
  int box_col = 0, box_row = 0;  // the box's first pixel in the template
  int cols = 0, rows = 0;        // of the box; 0 for a template of zeros
  int stride = 0;                // pixels from one row of a tile to the next
  std::int64_t pixels = 0;       // of the mask
  std::int64_t sum = 0;          // of the template's values
  double variance = 0;           // pixels x sum of squares - sum^2
  std::vector<MaskBand> bands;
};

/// pattern: width x height bytes, rows from the top.
CorrelationPlan Plan_Correlation(std::span<const std::uint8_t> pattern, int width, int height);

}  // namespace sylvomex
