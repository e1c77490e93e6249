// SPDX-License-Identifier: MIT
#include "closedlib/correlation_image.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "closedlib/correlation_by_path.h"
#include "closedlib/correlation_plan.h"
#include "closedlib/correlation_sums.h"
#include "closedlib/correlation_transform.h"
#include "closedlib/parallel_tasks.h"
#include "closedlib/wide_integer.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

constexpr int kMostSide = 32767;
constexpr int kStripRows = 85 * kBlockRows;  // window rows in a tile: its pixels stay in cache

/// Columns and rows, first to last - 1, of the windows that lie in the patch together with their
/// reference point.
struct WindowRange {
  std::int64_t first_col = 0, last_col = 0, first_row = 0, last_row = 0;
};

/// Everything that the tiles of one image share.
struct Job {
  const SumPath& path;
  const CorrelationPlan& plan;
  const CorrelationInput& input;
  WindowRange windows;
  std::int64_t shift_col = 0, shift_row = 0;  // offset from a window to its reference pixel
  std::span<double> result;
  bool transformed = false;  // the result holds the windows' products
};

/// Position of a rectangle of windows.
struct TilePlace {
  std::int64_t col = 0, row = 0;
  int cols = 0, rows = 0;
};

/// Sums of windows in more than one band.
struct LongSums {
  std::int64_t products = 0, sums = 0, squares = 0;
};

using LongBlock = std::vector<LongSums>;  // kBlockRows x kTileCols

double Long_Coefficient(const CorrelationPlan& plan, const LongSums& s) {
  const Int128 n = plan.pixels;
  const Int128 shifted = Int128{kTapOffset} * s.sums;
  const Int128 variance = n * (s.squares + shifted) - Int128{s.sums} * s.sums;
  if (variance <= 0) return 0;
  const Int128 covariance = n * (s.products + shifted) - Int128{s.sums} * plan.sum;
  const double r =
      static_cast<double>(covariance) / std::sqrt(static_cast<double>(variance) * plan.variance);
  return std::clamp(r, -1.0, 1.0);
}

void Add_Band(const BlockSums& block, LongBlock& all) {
  for (std::size_t row = 0; row < kBlockRows; ++row) {
    for (std::size_t col = 0; col < kTileCols; ++col) {
      LongSums& s = all[row * kTileCols + col];
      s.products += block.products[row][col];
      s.sums += block.rows[row].sums[col];
      s.squares += block.rows[row].squares[col];
    }
  }
}

/// Index of a window's reference pixel in the result.
std::size_t Result_Place(const Job& job, std::int64_t col, std::int64_t row) {
  return static_cast<std::size_t>((row + job.shift_row) * job.input.patch_width + col +
                                  job.shift_col);
}

/// Correlates tile after tile, reusing its buffers.
class TileWorker {
 public:
  void Work(const Job& job, const TilePlace& place) {
    Load(job, place);
    running_.resize(job.plan.bands.size());
    for (std::size_t k = 0; k < running_.size(); ++k) {
      job.path.start(job.plan.bands[k], Window(job, k, 0), running_[k]);
    }
    for (int row = 0; row < place.rows; row += kBlockRows) {
      if (running_.size() == 1) {
        Short_Block(job, place, row);
      } else {
        Long_Block(job, place, row);
      }
    }
  }

 private:
  /// Copies the patch pixels under the tile and pads its rows with 0.
  void Load(const Job& job, const TilePlace& place) {
    const int blocks = (place.rows + kBlockRows - 1) / kBlockRows;
    const int tile_rows = blocks * kBlockRows + job.plan.rows;
    const int rows = place.rows + job.plan.rows - 1;
    const auto cols = static_cast<std::size_t>(place.cols + job.plan.cols - 1);
    const auto stride = static_cast<std::size_t>(job.plan.stride);
    pixels_.assign(stride * static_cast<std::size_t>(tile_rows), 0);
    const std::uint8_t* from =
        job.input.patch.data() + place.row * job.input.patch_width + place.col;
    for (int row = 0; row < rows; ++row, from += job.input.patch_width) {
      std::copy_n(from, cols, &pixels_[static_cast<std::size_t>(row) * stride]);
    }
  }

  /// The first pixel of the band in the first window of a row.
  [[nodiscard]] const std::uint8_t* Window(const Job& job, std::size_t band, int row) const {
    return pixels_.data() + static_cast<std::size_t>(job.plan.bands[band].first_row + row) *
                                static_cast<std::size_t>(job.plan.stride);
  }

  /// Sums of a band in the block of rows from `row` on.
  void Add_Block(const Job& job, std::size_t band, int row) {
    const std::uint8_t* window = Window(job, band, row);
    if (!job.transformed) {
      job.path.products(job.plan.bands[band], window, job.plan.stride, block_);
    }
    job.path.slide(job.plan.bands[band], window, job.plan.stride, running_[band], block_);
  }

  void Short_Block(const Job& job, const TilePlace& place, int row) {
    Add_Block(job, 0, row);
    const CoefficientTerms terms = {static_cast<double>(job.plan.pixels),
                                    static_cast<double>(job.plan.sum), job.plan.variance};
    for (int k = 0; k < std::min(kBlockRows, place.rows - row); ++k) {
      const auto at = static_cast<std::size_t>(k);
      double* to = &job.result[Result_Place(job, place.col, place.row + row + k)];
      if (job.transformed) {
        std::transform(to, to + place.cols, block_.products[at].begin(),
                       [](double product) { return static_cast<std::int32_t>(product); });
      }
      Row_Coefficients(terms, block_.products[at], block_.rows[at], place.cols, to);
    }
  }

  void Long_Block(const Job& job, const TilePlace& place, int row) {
    long_block_.assign(static_cast<std::size_t>(kBlockRows) * kTileCols, {});
    for (std::size_t k = 0; k < running_.size(); ++k) {
      Add_Block(job, k, row);
      Add_Band(block_, long_block_);
    }
    for (int k = 0; k < std::min(kBlockRows, place.rows - row); ++k) {
      double* to = &job.result[Result_Place(job, place.col, place.row + row + k)];
      LongSums* sums = &long_block_[static_cast<std::size_t>(k) * kTileCols];
      for (int col = 0; col < place.cols; ++col) {
        if (job.transformed) sums[col].products = static_cast<std::int64_t>(to[col]);
        to[col] = Long_Coefficient(job.plan, sums[col]);
      }
    }
  }

  std::vector<std::uint8_t> pixels_;  // under the tile, `stride` a row
  std::vector<RowSums> running_;      // by band: sums of the next row of windows
  BlockSums block_;
  LongBlock long_block_;
};

void Refuse(const std::string& about) {
  throw RunTimeError(Failure::SubscriptOutOfRange, "correlation image: " + about);
}

void Require_Pixels(const std::string& what, int width, int height, std::size_t given) {
  const std::string size = std::to_string(width) + " x " + std::to_string(height);
  if (width < 0 || height < 0 || width > kMostSide || height > kMostSide) {
    Refuse(what + " of " + size + " pixels, sides from 0 to 32767 are possible");
  }
  if (given < static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    Refuse(what + " of " + size + " pixels, but only " + std::to_string(given) + " are given");
  }
}

WindowRange Possible_Windows(const CorrelationInput& input, const CorrelationPlan& plan,
                             std::int64_t shift_col, std::int64_t shift_row) {
  WindowRange range;
  range.first_col = std::max<std::int64_t>(0, -shift_col);
  range.last_col =
      std::min<std::int64_t>(input.patch_width - plan.cols + 1, input.patch_width - shift_col);
  range.first_row = std::max<std::int64_t>(0, -shift_row);
  range.last_row =
      std::min<std::int64_t>(input.patch_height - plan.rows + 1, input.patch_height - shift_row);
  return range;
}

bool Is_Empty(const WindowRange& range) {
  return range.first_col >= range.last_col || range.first_row >= range.last_row;
}

/// Sets 0 at every pixel that is not a window's reference pixel.
void Clear_Margins(const Job& job) {
  const auto width = static_cast<std::size_t>(job.input.patch_width);
  const auto height = static_cast<std::size_t>(job.input.patch_height);
  const auto first_row = static_cast<std::size_t>(job.windows.first_row + job.shift_row);
  const auto last_row = static_cast<std::size_t>(job.windows.last_row + job.shift_row);
  const auto left = job.windows.first_col + job.shift_col;
  const auto right = job.windows.last_col + job.shift_col;
  const auto begin = job.result.begin();
  const auto at = [&](std::size_t row, std::int64_t col) {
    return begin + static_cast<std::ptrdiff_t>(row * width) + col;
  };
  std::fill(begin, at(first_row, 0), 0.0);
  for (std::size_t row = first_row; row < last_row; ++row) {
    std::fill(at(row, 0), at(row, left), 0.0);
    std::fill(at(row, right), at(row + 1, 0), 0.0);
  }
  std::fill(at(last_row, 0), at(height, 0), 0.0);
}

void Work_Tiles(const Job& job, int threads) {
  const WindowRange& w = job.windows;
  const auto tiles = static_cast<int>((w.last_col - w.first_col + kTileCols - 1) / kTileCols);
  const auto strips = static_cast<int>((w.last_row - w.first_row + kStripRows - 1) / kStripRows);
  Run_Tasks(tiles * strips, threads, [&](int task) {
    thread_local TileWorker worker;
    TilePlace place;
    place.col = w.first_col + std::int64_t{task % tiles} * kTileCols;
    place.row = w.first_row + std::int64_t{task / tiles} * kStripRows;
    place.cols = static_cast<int>(std::min<std::int64_t>(kTileCols, w.last_col - place.col));
    place.rows = static_cast<int>(std::min<std::int64_t>(kStripRows, w.last_row - place.row));
    worker.Work(job, place);
  });
}

/// Estimated time of summing product by product, in the unit of TileChoice.
double Added_Cost(const Job& job, int threads) {
  std::int64_t groups = 0;  // of a block of rows
  for (const MaskBand& band : job.plan.bands) {
    for (const GroupRange& reach : band.reach) groups += reach.last - reach.first;
  }
  const WindowRange& w = job.windows;
  const auto windows =
      static_cast<double>(w.last_col - w.first_col) * static_cast<double>(w.last_row - w.first_row);
  return job.path.tap_cost * windows * static_cast<double>(kTapGroup * groups) / threads;
}

/// Shape of the tiles for products by transform; none when summing directly is faster.
std::optional<TileShape> Transform_Tiles(const Job& job, int threads, Products products) {
  if (products == Products::Added) return std::nullopt;
  const WindowRange& w = job.windows;
  const TileChoice choice =
      Choose_Tiles(job.plan, w.last_col - w.first_col, w.last_row - w.first_row, threads);
  const bool cheap = products == Products::Transformed || choice.cost < Added_Cost(job, threads);
  if (!std::isfinite(choice.cost) || !cheap) return std::nullopt;
  return choice.shape;
}

/// Writes each window's product to the position of its coefficient.
void Write_Products(const Job& job, TileShape shape, int threads) {
  const WindowRange& w = job.windows;
  const auto width = static_cast<std::size_t>(job.input.patch_width);
  const auto cols = static_cast<int>(w.last_col - w.first_col);
  const auto rows = static_cast<int>(w.last_row - w.first_row);
  const TileView<const std::uint8_t> patch = {
      job.input.patch.data() + w.first_row * job.input.patch_width + w.first_col, width,
      cols + job.plan.cols - 1, rows + job.plan.rows - 1};
  const TileView<double> places = {&job.result[Result_Place(job, w.first_col, w.first_row)], width,
                                   cols, rows};
  Transform_Products(job.plan, shape, patch, places, threads);
}

}  // namespace

void Correlate_By_Path(const SumPath& path, const CorrelationInput& input, std::span<double> result,
                       int threads, Products products) {
  Require_Pixels("patch", input.patch_width, input.patch_height, input.patch.size());
  Require_Pixels("template", input.template_width, input.template_height, input.pattern.size());
  Require_Pixels("result", input.patch_width, input.patch_height, result.size());
  result = result.first(static_cast<std::size_t>(input.patch_width) *
                        static_cast<std::size_t>(input.patch_height));
  const CorrelationPlan plan =
      Plan_Correlation(input.pattern, input.template_width, input.template_height);
  const std::int64_t shift_col = std::int64_t{input.reference_col} - plan.box_col;
  const std::int64_t shift_row = std::int64_t{input.reference_row} - plan.box_row;
  const WindowRange windows = Possible_Windows(input, plan, shift_col, shift_row);
  if (plan.variance == 0 || Is_Empty(windows)) {
    std::fill(result.begin(), result.end(), 0.0);
    return;
  }
  Job job = {path, plan, input, windows, shift_col, shift_row, result};
  Clear_Margins(job);
  if (const auto shape = Transform_Tiles(job, Thread_Count(threads), products)) {
    Write_Products(job, *shape, threads);
    job.transformed = true;
  }
  Work_Tiles(job, threads);
}

void MYFUNC_CORIMA(const CorrelationInput& input, std::span<double> result, int threads) {
  const SumPath* byte_dots = Byte_Dot_Sums();
  Correlate_By_Path(byte_dots ? *byte_dots : Portable_Sums(), input, result, threads);
}

}  // namespace sylvomex
