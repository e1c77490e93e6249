// SPDX-License-Identifier: MIT
#include "products/ortho_image.h"

#include <algorithm>
#include <atomic>
#include <string>
#include <vector>

#include "closedlib/parallel_tasks.h"
#include "platform/run_time_error.h"
#include "platform/work_meter.h"
#include "products/ortho_columns.h"

namespace sylvomex {
namespace {

constexpr std::int32_t kRowsOfATask = 64;
constexpr double kLowestPosition = 1;  // below it a cell is black

/// Where the bytes of a cell come from.
enum class CellState : std::uint8_t { Read, Black, BeyondEnd };

/// Some neighbouring columns of a grid on their way to bytes. Calls for different rows may run at
/// the same time.
class OrthoSlab {
 public:
  OrthoSlab(const OrthoGrid& grid, const OrthoSource& source, const OrthoHeights& heights,
            std::int32_t first_col, std::int32_t last_col, std::span<std::uint8_t> cells)
      : grid_(grid),
        source_(source),
        first_col_(static_cast<std::size_t>(first_col)),
        pixel_bytes_(static_cast<std::size_t>(source.pixel_bytes)),
        cells_(cells),
        columns_(grid, source, heights, first_col, last_col - first_col, grid.pixel) {}

  /// Copies the pixels of some rows as far as each cell is read or black. False: some are neither.
  bool Copy_Rows(std::int32_t first_row, std::int32_t last_row);

  /// The pixel read last after Copy_Rows of all rows.
  void Take_Last_Pixel(LastPixel& last) const;

  /// For Read_Rows and Repeat_Last_Pixels.
  void Begin_Reading() { states_.resize(columns_.Count() * static_cast<std::size_t>(grid_.rows)); }

  /// Reads the pixels of some rows cell by cell.
  void Read_Rows(std::int32_t first_row, std::int32_t last_row);

  /// Gives the cells beyond the end of the source the pixel read before them, column after column.
  void Repeat_Last_Pixels(LastPixel& last);

 private:
  void Read_Cell(std::int32_t row, std::size_t k, double position);
  void Take_Last_Of_Column(std::size_t k, LastPixel& last) const;

  [[nodiscard]] std::uint8_t* Cell(std::int32_t row, std::size_t k) const {
    const auto columns = static_cast<std::size_t>(grid_.columns);
    const std::size_t first = static_cast<std::size_t>(row) * columns + first_col_;
    return cells_.data() + (first + k) * pixel_bytes_;
  }
  [[nodiscard]] std::size_t State_Index(std::int32_t row, std::size_t k) const {
    return static_cast<std::size_t>(row) * columns_.Count() + k;
  }

  const OrthoGrid& grid_;
  const OrthoSource& source_;
  std::size_t first_col_;
  std::size_t pixel_bytes_;
  std::span<std::uint8_t> cells_;
  OrthoColumns columns_;
  std::atomic<bool> any_read_ = false;
  std::vector<CellState> states_;  // row by row
};

bool OrthoSlab::Copy_Rows(std::int32_t first_row, std::int32_t last_row) {
  RowHeights heights;
  std::vector<std::uint32_t> offsets(columns_.Count());
  for (std::int32_t row = first_row; row < last_row; ++row) {
    const RowCells cells = columns_.Find_Offsets(row, heights, kLowestPosition, offsets);
    if (cells.any_other) return false;
    if (cells.any_read) any_read_.store(true, std::memory_order_relaxed);
    Copy_Pixels(source_, offsets, Cell(row, 0));
  }
  return true;
}

void OrthoSlab::Take_Last_Pixel(LastPixel& last) const {
  if (!any_read_) return;
  // Read cells are seldom far from the last column's top.
  RowHeights heights;
  std::vector<std::uint32_t> offsets(columns_.Count());
  std::size_t best = 0;
  for (std::int32_t row = grid_.rows - 1; row >= 0 && best < columns_.Count(); --row) {
    if (row % kRowsOfATask == 0) Look_At_Work();
    columns_.Find_Offsets(row, heights, kLowestPosition, offsets);
    for (std::size_t k = columns_.Count(); k > best; --k) {
      if (offsets[k - 1] == kNoOffset) continue;
      std::copy_n(Cell(row, k - 1), pixel_bytes_, last.begin());
      best = k;
    }
  }
}

void OrthoSlab::Read_Rows(std::int32_t first_row, std::int32_t last_row) {
  RowHeights heights;
  std::vector<double> positions(columns_.Count());
  for (std::int32_t row = first_row; row < last_row; ++row) {
    columns_.Find_Positions(row, heights, positions);
    for (std::size_t k = 0; k < positions.size(); ++k) Read_Cell(row, k, positions[k]);
  }
}

void OrthoSlab::Read_Cell(std::int32_t row, std::size_t k, double position) {
  CellState state = CellState::Read;
  std::uint8_t* cell = Cell(row, k);
  if (!(position >= kLowestPosition)) {
    std::fill_n(cell, pixel_bytes_, std::uint8_t{0});
    state = CellState::Black;
  } else if (position + source_.pixel_bytes <= static_cast<double>(source_.bytes.size())) {
    std::copy_n(source_.bytes.data() + static_cast<std::size_t>(position), pixel_bytes_, cell);
  } else {
    state = CellState::BeyondEnd;
  }
  states_[State_Index(row, k)] = state;
}

void OrthoSlab::Take_Last_Of_Column(std::size_t k, LastPixel& last) const {
  for (std::int32_t row = grid_.rows - 1; row >= 0; --row) {
    if (states_[State_Index(row, k)] != CellState::Read) continue;
    std::copy_n(Cell(row, k), pixel_bytes_, last.begin());
    return;
  }
}

void OrthoSlab::Repeat_Last_Pixels(LastPixel& last) {
  std::vector<LastPixel> before(columns_.Count());
  for (std::size_t k = 0; k < columns_.Count(); ++k) {
    Look_At_Work();
    before[k] = last;
    Take_Last_Of_Column(k, last);
  }
  // Row by row, since neighbouring cells of a row share cache lines.
  for (std::int32_t row = 0; row < grid_.rows; ++row) {
    if (row % kRowsOfATask == 0) Look_At_Work();
    for (std::size_t k = 0; k < columns_.Count(); ++k) {
      const CellState state = states_[State_Index(row, k)];
      if (state == CellState::Read) std::copy_n(Cell(row, k), pixel_bytes_, before[k].begin());
      if (state == CellState::BeyondEnd) std::copy_n(before[k].begin(), pixel_bytes_, Cell(row, k));
    }
  }
}

void Require_Room(const OrthoGrid& grid, const OrthoSource& source, std::size_t have) {
  const std::uint64_t wanted = grid.Cells() * static_cast<std::uint64_t>(source.pixel_bytes);
  if (have >= wanted) return;
  throw RunTimeError(
      Failure::SubscriptOutOfRange,
      "an orthoimage of " + std::to_string(wanted) + " bytes in room for " + std::to_string(have));
}

/// Calls visit(first_row, last_row) for blocks of rows.
template <class Visit>
void For_Each_Block(const OrthoGrid& grid, int threads, Visit&& visit) {
  const std::int32_t tasks = (grid.rows + kRowsOfATask - 1) / kRowsOfATask;
  Run_Tasks(tasks, threads, [&](int task) {
    const std::int32_t first_row = task * kRowsOfATask;
    visit(first_row, std::min(grid.rows, first_row + kRowsOfATask));
  });
}

}  // namespace

void Fill_Ortho_Columns(const OrthoGrid& grid, const OrthoSource& source,
                        const OrthoHeights& heights, std::int32_t first_col, std::int32_t last_col,
                        std::span<std::uint8_t> cells, LastPixel& last, int threads) {
  Require_Room(grid, source, cells.size());
  OrthoSlab slab(grid, source, heights, first_col, last_col, cells);
  WorkMeter stages(2);  // copying, and reading where that does not do
  std::atomic<bool> complete = source.bytes.size() <= kMostOffsetBytes;
  if (complete) {
    For_Each_Block(grid, threads, [&](std::int32_t first_row, std::int32_t last_row) {
      if (complete && !slab.Copy_Rows(first_row, last_row)) complete = false;
    });
  }
  stages.Task();
  if (complete) return slab.Take_Last_Pixel(last);
  slab.Begin_Reading();
  For_Each_Block(grid, threads, [&](std::int32_t first_row, std::int32_t last_row) {
    slab.Read_Rows(first_row, last_row);
  });
  stages.Task();
  slab.Repeat_Last_Pixels(last);
}

}  // namespace sylvomex
