// SPDX-License-Identifier: MIT
#include "closedlib/correlation_transform.h"

#include <tbb/enumerable_thread_specific.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "closedlib/parallel_tasks.h"
#include "platform/huge_pages.h"

namespace sylvomex {
namespace {

constexpr int kLeastSide = 64, kMostSide = 1024;

std::int64_t Parts(std::int64_t whole, std::int64_t part) { return (whole + part - 1) / part; }

// Nanoseconds, fitted to measurements of 11 x 11 to 151 x 151 templates on 1201 x 1201 pixels.
constexpr double kStepTime = 0.36;   // per value of a pair of tiles and radix-2 step
constexpr double kWindowTime = 1.9;  // to write a window's product and read it again

/// Time of a pair of tiles. The second term models the cache misses of large tiles.
double Pair_Time(TileShape shape) {
  const double values = static_cast<double>(shape.cols) * shape.rows;
  return kStepTime * values * (std::log2(values) + values / 0x1p17);
}

/// Template values minus kTapOffset, 0 outside the mask, plan.cols per row.
std::vector<std::int8_t> Taps_Of_Box(const CorrelationPlan& plan) {
  std::vector<std::int8_t> taps;
  for (const MaskBand& band : plan.bands) {
    auto row = band.taps.begin() + (kBlockRows - 1) * band.tap_cols;
    for (int k = 0; k < band.rows; ++k, row += band.tap_cols) {
      taps.insert(taps.end(), row, row + plan.cols);
    }
  }
  return taps;
}

/// The part of an image from (col, row) on, at most cols x rows; empty beyond it.
template <class Value>
TileView<Value> Part_Of(const TileView<Value>& image, std::int64_t col, std::int64_t row, int cols,
                        int rows) {
  if (col >= image.cols || row >= image.rows) return {};
  return {image.first + row * static_cast<std::int64_t>(image.width) + col, image.width,
          std::min(cols, static_cast<int>(image.cols - col)),
          std::min(rows, static_cast<int>(image.rows - row))};
}

/// Shared by the tiles of an image.
struct Tiling {
  Tiling(const CorrelationPlan& plan, TileShape shape, std::int64_t cols, std::int64_t rows)
      : tile_cols(shape.cols - plan.cols + 1),
        tile_rows(shape.rows - plan.rows + 1),
        across(Parts(cols, tile_cols)),
        tiles(across * Parts(rows, tile_rows)),
        pairs(Parts(tiles, 2)) {}

  int tile_cols, tile_rows;  // windows per tile
  std::int64_t across;       // tiles side by side
  std::int64_t tiles, pairs;
};

}  // namespace

double Transform_Error(TileShape shape, std::int64_t mask_pixels) {
  const double values = static_cast<double>(shape.cols) * shape.rows;
  const double step = 10 * 0x1p-53 * std::log2(values);
  const double tile = 255 * std::sqrt(2 * values);
  const auto pixels = static_cast<double>(mask_pixels);
  return tile * kTapOffset * (step * pixels + (2 * step + 3 * 0x1p-53) * std::sqrt(pixels));
}

TileChoice Choose_Tiles(const CorrelationPlan& plan, std::int64_t cols, std::int64_t rows,
                        int threads) {
  const double writing =
      kWindowTime * static_cast<double>(cols) * static_cast<double>(rows) / threads;
  TileChoice best = {{}, std::numeric_limits<double>::infinity()};
  for (int tile_cols = kLeastSide; tile_cols <= kMostSide; tile_cols *= 2) {
    for (int tile_rows = kLeastSide; tile_rows <= kMostSide; tile_rows *= 2) {
      const TileShape shape = {tile_cols, tile_rows};
      if (plan.cols > tile_cols || plan.rows > tile_rows) continue;
      if (Transform_Error(shape, plan.pixels) > 0.25) continue;
      const Tiling tiling(plan, shape, cols, rows);
      // The template's own transform and page faults of new memory cost about one and a half pairs.
      const double rounds = 1.5 + static_cast<double>(Parts(tiling.pairs, threads));
      const double cost = rounds * Pair_Time(shape) + writing;
      if (cost < best.cost) best = {shape, cost};
    }
  }

  return best;
}

void Transform_Products(const CorrelationPlan& plan, TileShape shape,
                        const TileView<const std::uint8_t>& patch, const TileView<double>& products,
                        int threads) {
  const TileTransform transform(shape);
  ScratchPages<double> filter(transform.Filter_Reals());
  tbb::enumerable_thread_specific<ScratchPages<double>> work(transform.Work_Reals());
  const std::vector<std::int8_t> taps = Taps_Of_Box(plan);
  Make_Filter(transform, {taps.data(), static_cast<std::size_t>(plan.cols), plan.cols, plan.rows},
              filter.Data(), work.local().Data());
  const Tiling tiling(plan, shape, products.cols, products.rows);
  Run_Tasks(static_cast<int>(tiling.pairs), threads, [&](int pair) {
    std::array<TileView<const std::uint8_t>, 2> tiles;
    std::array<TileView<double>, 2> results;
    for (std::size_t part = 0; part < 2; ++part) {
      const std::int64_t tile = 2 * std::int64_t{pair} + static_cast<std::int64_t>(part);
      const std::int64_t col = tile % tiling.across * tiling.tile_cols;
      const std::int64_t row = tile / tiling.across * tiling.tile_rows;
      results[part] = Part_Of(products, col, row, tiling.tile_cols, tiling.tile_rows);
      if (results[part].cols > 0) {
        tiles[part] = Part_Of(patch, col, row, shape.cols, shape.rows);
      }
    }
    Correlate_Tiles(transform, filter.Data(), tiles, results, work.local().Data());
  });
}

}  // namespace sylvomex
