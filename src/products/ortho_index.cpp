// SPDX-License-Identifier: MIT
#include "products/ortho_index.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/rounding.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

/// Grows limits by the ground positions of border pixels.
class BorderWalk {
 public:
  explicit BorderWalk(const Camera& camera) : camera_(camera) {}

  void Step(double col, double row) {
    const auto ground =
        Image_To_Object_At_Z(camera_, kIndexGround, Pixel_To_Image(camera_, {col, row}));
    if (!ground || !(To_Camera_Axes(camera_, *ground).q < 0)) return;
    limits_.west = std::min(limits_.west, ground->X);
    limits_.east = std::max(limits_.east, ground->X);
    limits_.south = std::min(limits_.south, ground->Y);
    limits_.north = std::max(limits_.north, ground->Y);
  }

  [[nodiscard]] std::optional<GroundLimits> Found() const {
    if (limits_.west > limits_.east) return std::nullopt;
    return limits_;
  }

 private:
  static constexpr double kFar = std::numeric_limits<double>::infinity();
  const Camera& camera_;
  GroundLimits limits_{kFar, -kFar, kFar, -kFar};
};

/// Cells of one axis between two places: first to last, both included.
struct CellRange {
  std::int32_t first = 0, last = -1;

  [[nodiscard]] double Count() const { return static_cast<double>(last) - first + 1; }
};

CellRange Cells_Between(double from, double to, double origin, double pixel, std::int32_t count) {
  const double first = std::max(0.0, std::floor((from - origin) / pixel));
  const double last = std::min(count - 1.0, std::ceil((to - origin) / pixel));
  if (!(first <= last)) return {};
  return {static_cast<std::int32_t>(first), static_cast<std::int32_t>(last)};
}

CellRange Columns_Of(const OrthoGrid& grid, const GroundLimits& limits) {
  return Cells_Between(limits.west, limits.east, grid.X0, grid.pixel, grid.columns);
}

CellRange Rows_Of(const OrthoGrid& grid, const GroundLimits& limits) {
  return Cells_Between(limits.south, limits.north, grid.Y0, grid.pixel, grid.rows);
}

bool Covers(const ImageRecord& image, const Camera& camera, const Point3D& place) {
  if (!(To_Camera_Axes(camera, place).q < 0)) return false;
  const PixelPosition at = Object_To_Pixel(camera, place);
  const double col = Round_Half_Even(at.col), row = Round_Half_Even(at.row);
  return col >= 0 && col <= image.FullWidth - 1 && row >= 0 && row <= image.FullHeight - 1;
}

}  // namespace

std::optional<GroundLimits> Limits_Of_Border(const ImageRecord& image, const Camera& camera) {
  BorderWalk walk(camera);
  const int last_col = image.FullWidth - 1, last_row = image.FullHeight - 1;
  for (int col = 0; col <= last_col; ++col) {
    walk.Step(col, 0);
    walk.Step(col, last_row);
  }
  for (int row = 0; row <= last_row; ++row) {
    walk.Step(0, row);
    walk.Step(last_col, row);
  }
  return walk.Found();
}

GroundLimits Around_Both(const GroundLimits& a, const GroundLimits& b) {
  return {std::min(a.west, b.west), std::max(a.east, b.east), std::min(a.south, b.south),
          std::max(a.north, b.north)};
}

OrthoGrid Grid_Over(const GroundLimits& limits, double pixel) {
  return Make_Ortho_Grid(limits.west, limits.south, limits.east - limits.west,
                         limits.north - limits.south, pixel);
}

void Mark_Covered_Cells(const OrthoGrid& grid, const ImageRecord& image, const Camera& camera,
                        const GroundLimits& limits, std::uint8_t number, std::span<float> ids,
                        std::span<std::uint8_t> numbers) {
  const CellRange cols = Columns_Of(grid, limits), rows = Rows_Of(grid, limits);
  WorkMeter meter(rows.Count());
  for (std::int32_t row = rows.first; row <= rows.last; ++row) {
    meter.Task();
    for (std::int32_t col = cols.first; col <= cols.last; ++col) {
      const std::size_t cell =
          static_cast<std::size_t>(row) * static_cast<std::size_t>(grid.columns) +
          static_cast<std::size_t>(col);
      if (numbers[cell] != kNoImage) continue;
      const Point3D place{grid.X0 + col * grid.pixel, grid.Y0 + row * grid.pixel, kIndexGround};
      if (!Covers(image, camera, place)) continue;
      ids[cell] = static_cast<float>(image.ImageId);
      numbers[cell] = number;
    }
  }
}

double Cells_Within(const OrthoGrid& grid, std::span<const GroundLimits> limits) {
  double cells = 0;
  for (const GroundLimits& one : limits) {
    cells += Columns_Of(grid, one).Count() * Rows_Of(grid, one).Count();
  }
  return std::min(cells, static_cast<double>(grid.Cells()));
}

std::uint8_t Index_Number(std::size_t place) { return static_cast<std::uint8_t>(place % 255 + 1); }

}  // namespace sylvomex
