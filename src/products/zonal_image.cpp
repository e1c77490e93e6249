// SPDX-License-Identifier: MIT
#include "products/zonal_image.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include "platform/list_lines.h"
#include "platform/rounding.h"
#include "platform/work_meter.h"

namespace sylvomex {
namespace {

constexpr std::size_t kMostCircles = 1000;
constexpr double kMargin = 50;  // pixels beyond the highest column and row

struct Limits {
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -lowest;

  void Add(double position) {
    lowest = std::min(lowest, position);
    highest = std::max(highest, position);
  }
};

/// Positions in an area's columns or rows that lie within limits: first to last, both included.
struct Reach {
  std::int32_t first = 0, last = -1;
};

Reach Reach_In(const Limits& limits, std::int32_t area_first, std::int32_t count) {
  // A pixel more on either side covers the roundings of the projection.
  const double first = std::max(0.0, limits.lowest - area_first - 1);
  const double last = std::min(count - 1.0, limits.highest - area_first + 1);
  if (!(first <= last)) return {};
  return {static_cast<std::int32_t>(first), static_cast<std::int32_t>(last)};
}

struct PixelReach {
  Reach cols, rows;
};

/// Where the pixels of a circle can lie: in the frame of the projected square around it. The whole
/// area for a circle that is not wholly in front of the camera.
PixelReach Reach_Of_Circle(const Camera& camera, const PixelArea& area,
                           const GroundCircle& circle) {
  Limits cols, rows;
  for (const double east : {-circle.radius, circle.radius}) {
    for (const double north : {-circle.radius, circle.radius}) {
      const Point3D corner{circle.centre.X + east, circle.centre.Y + north, circle.centre.Z};
      if (!(To_Camera_Axes(camera, corner).q < 0)) {
        return {{0, area.columns - 1}, {0, area.rows - 1}};
      }
      const auto [col, row] = Object_To_Pixel(camera, corner);
      cols.Add(col);
      rows.Add(row);
    }
  }
  return {Reach_In(cols, area.first_col, area.columns), Reach_In(rows, area.first_row, area.rows)};
}

bool Falls_In(const Camera& camera, const PixelPosition& pixel, const GroundCircle& circle) {
  const auto ground = Image_To_Object_At_Z(camera, circle.centre.Z, Pixel_To_Image(camera, pixel));
  if (!ground) return false;
  const double dX = ground->X - circle.centre.X, dY = ground->Y - circle.centre.Y;
  return dX * dX + dY * dY <= circle.radius * circle.radius;
}

std::int32_t Whole_Extent(const Limits& limits, std::int32_t first) {
  return To_Int32(To_Int32(limits.highest) + kMargin - first + 1);
}

}  // namespace

std::vector<GroundCircle> Read_Ground_Circles(const FilePath& file) {
  std::vector<GroundCircle> circles;
  For_Each_Line(file, [&](ListReader& line) {
    if (circles.size() == kMostCircles) return;
    GroundCircle& circle = circles.emplace_back();
    circle.centre.X = line.Read_Double();
    circle.centre.Y = line.Read_Double();
    circle.centre.Z = line.Read_Double();
    circle.id = line.Read_Byte();
    circle.radius = line.Read_Double();
  });
  return circles;
}

PixelArea Area_Of_Circles(const Camera& camera, std::span<const GroundCircle> circles) {
  Limits cols, rows;
  for (const GroundCircle& circle : circles) {
    const auto [col, row] = Object_To_Pixel(camera, circle.centre);
    cols.Add(col);
    rows.Add(row);
  }
  PixelArea area;
  area.first_col = To_Int32(cols.lowest);
  area.first_row = To_Int32(rows.lowest);
  area.columns = Whole_Extent(cols, area.first_col);
  area.rows = Whole_Extent(rows, area.first_row);
  return area;
}

ZeroedArray<std::uint8_t> Zonal_Mask(const Camera& camera, const PixelArea& area,
                                     std::span<const GroundCircle> circles) {
  ZeroedArray<std::uint8_t> mask(area.Pixels());
  const std::span<std::uint8_t> cells = mask.All();
  const auto columns = static_cast<std::size_t>(area.columns);
  WorkMeter meter(static_cast<double>(circles.size()));
  for (const GroundCircle& circle : circles) {
    const auto [cols, rows] = Reach_Of_Circle(camera, area, circle);
    WorkMeter circle_rows(rows.last - rows.first + 1);
    for (std::int32_t row = rows.first; row <= rows.last; ++row) {
      circle_rows.Step();
      for (std::int32_t col = cols.first; col <= cols.last; ++col) {
        const PixelPosition pixel{static_cast<double>(area.first_col) + col,
                                  static_cast<double>(area.first_row) + row};
        if (!Falls_In(camera, pixel, circle)) continue;
        cells[static_cast<std::size_t>(row) * columns + static_cast<std::size_t>(col)] = circle.id;
      }
    }
    meter.Step();
  }
  return mask;
}

}  // namespace sylvomex
