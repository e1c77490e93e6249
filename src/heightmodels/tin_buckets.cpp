// SPDX-License-Identifier: MIT
#include "heightmodels/tin_buckets.h"

#include <cmath>
#include <limits>
#include <optional>

#include "platform/many_steps.h"

namespace sylvomex {
namespace {

constexpr double kLargestCoordinate = 1e100;
constexpr double kLeastRise = 1e-200;
constexpr double kMostLines = 16384;  // columns or rows
constexpr std::uint64_t kMostEntriesATriangle = 16;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Box {
  double west = kInfinity, south = kInfinity, east = -kInfinity, north = -kInfinity;

  void Add(const Box& other) {
    west = std::min(west, other.west);
    south = std::min(south, other.south);
    east = std::max(east, other.east);
    north = std::max(north, other.north);
  }
};

struct CellRange {
  std::int32_t first_column = 0, last_column = 0, first_row = 0, last_row = 0;

  [[nodiscard]] std::uint64_t Cells() const {
    return static_cast<std::uint64_t>(last_column - first_column + 1) *
           static_cast<std::uint64_t>(last_row - first_row + 1);
  }
};

/// False where product, quotient or sum of the edge test could overflow or lose all digits.
bool Is_Ordinary(const TinTriangle& t) {
  for (std::size_t i = 0; i < 3; ++i) {
    const MapPoint& p = t.Corners[i];
    const double rise = std::abs(t.Corners[(i + 1) % 3].Y - p.Y);
    if (!(std::abs(p.X) <= kLargestCoordinate && std::abs(p.Y) <= kLargestCoordinate)) return false;
    if (rise != 0 && rise < kLeastRise) return false;
  }
  return true;
}

/// The box in which the edge test can answer "inside". Y and the eastern limit are compared
/// exactly; the crossing is off by a few units in the last place, so the western limit is
/// widened.
Box Reach(const TinTriangle& t) {
  constexpr double kRelativeError = 1e-14, kLeastError = 1e-100;
  const auto& [a, b, c] = t.Corners;
  Box box{std::min({a.X, b.X, c.X}), std::min({a.Y, b.Y, c.Y}), std::max({a.X, b.X, c.X}),
          std::max({a.Y, b.Y, c.Y})};
  box.west -= kRelativeError * std::max(std::abs(box.west), std::abs(box.east)) + kLeastError;
  return box;
}

std::optional<std::vector<Box>> Reaches(std::span<const TinTriangle> triangles) {
  std::vector<Box> boxes;
  boxes.reserve(triangles.size());
  ManySteps steps(static_cast<double>(triangles.size()));
  for (const TinTriangle& t : triangles) {
    steps.Step();
    if (!Is_Ordinary(t)) return std::nullopt;
    boxes.push_back(Reach(t));
  }
  return boxes;
}

void Set_Size(TinBuckets& grid, double cells) {
  const double width = grid.east - grid.west, height = grid.north - grid.south;
  const double columns = height > 0 ? std::sqrt(cells * (width / height)) : cells;
  const auto lines = [](double count) {
    return static_cast<std::int32_t>(std::clamp(std::floor(count), 1.0, kMostLines));
  };
  grid.columns = lines(columns);
  grid.rows = lines(cells / grid.columns);
  grid.columns_per_metre = grid.columns / width;
  grid.rows_per_metre = height > 0 ? grid.rows / height : 0;
}

std::uint64_t Find_Ranges(const TinBuckets& grid, const std::vector<Box>& boxes,
                          std::vector<CellRange>& ranges) {
  std::uint64_t entries = 0;
  ManySteps steps(static_cast<double>(boxes.size()));
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    steps.Step();
    const Box& box = boxes[i];
    ranges[i] = {grid.Column(box.west), grid.Column(box.east), grid.Row(box.south),
                 grid.Row(box.north)};
    entries += ranges[i].Cells();
  }
  return entries;
}

/// Coarser cells where many triangles overlap, which bounds the memory.
std::vector<CellRange> Choose_Cells(TinBuckets& grid, const std::vector<Box>& boxes) {
  std::vector<CellRange> ranges(boxes.size());
  double cells = static_cast<double>(boxes.size()) / 2 + 1;
  for (;;) {
    Set_Size(grid, cells);
    const std::uint64_t entries = Find_Ranges(grid, boxes, ranges);
    if (entries <= kMostEntriesATriangle * boxes.size() || grid.columns * grid.rows == 1) break;
    cells /= 4;
  }
  return ranges;
}

template <class Visit>
void For_Each_Cell(const CellRange& range, std::int32_t columns, Visit&& visit) {
  for (std::int32_t row = range.first_row; row <= range.last_row; ++row) {
    const std::size_t start = static_cast<std::size_t>(row) * static_cast<std::size_t>(columns);
    for (std::int32_t column = range.first_column; column <= range.last_column; ++column) {
      visit(start + static_cast<std::size_t>(column));
    }
  }
}

/// A counting sort.
void Fill(TinBuckets& grid, const std::vector<CellRange>& ranges) {
  const std::size_t cells =
      static_cast<std::size_t>(grid.columns) * static_cast<std::size_t>(grid.rows);
  grid.first.assign(cells + 1, 0);
  ManySteps steps(2.0 * static_cast<double>(ranges.size()));
  for (const CellRange& range : ranges) {
    steps.Step();
    For_Each_Cell(range, grid.columns, [&](std::size_t cell) { ++grid.first[cell + 1]; });
  }
  for (std::size_t cell = 0; cell < cells; ++cell) grid.first[cell + 1] += grid.first[cell];
  grid.numbers.resize(grid.first.back());
  std::vector<std::uint32_t> next(grid.first.begin(), grid.first.end() - 1);
  std::int32_t number = 0;
  for (const CellRange& range : ranges) {
    ++number;
    steps.Step();
    For_Each_Cell(range, grid.columns,
                  [&](std::size_t cell) { grid.numbers[next[cell]++] = number; });
  }
}

}  // namespace

TinBuckets Make_Tin_Buckets(std::span<const TinTriangle> triangles) {
  TinBuckets grid;
  WorkMeter stages(3);
  const std::optional<std::vector<Box>> boxes = Reaches(triangles);
  if (!boxes || boxes->empty()) return grid;
  Box all;
  for (const Box& box : *boxes) all.Add(box);
  grid.west = all.west;
  grid.south = all.south;
  grid.east = all.east;
  grid.north = all.north;
  stages.Task();
  const std::vector<CellRange> ranges = Choose_Cells(grid, *boxes);
  stages.Task();
  Fill(grid, ranges);
  return grid;
}

}  // namespace sylvomex
