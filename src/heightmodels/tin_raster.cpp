// SPDX-License-Identifier: MIT
#include "heightmodels/tin_raster.h"

#include <cmath>
#include <new>

#include "closedlib/counted_loop.h"
#include "platform/number_text.h"
#include "platform/rounding.h"
#include "platform/run_time_error.h"
#include "platform/table.h"

namespace sylvomex {
namespace {

constexpr double kCellSize = 1;  // metres

struct Edge {
  double X = 0, Y = 0;
};

Edge From_To(const MapPoint& from, const MapPoint& to) { return {to.X - from.X, to.Y - from.Y}; }

double Dot(const Edge& a, const Edge& b) { return a.X * b.X + a.Y * b.Y; }

/// The barycentric test (Ericson 2005, "Real-Time Collision Detection", 3.4) of one triangle.
class BarycentricTest {
 public:
  explicit BarycentricTest(const TinTriangle& t)
      : corner_(t.Corners[0]),
        e1_(From_To(corner_, t.Corners[2])),
        e2_(From_To(corner_, t.Corners[1])),
        e1e1_(Dot(e1_, e1_)),
        e1e2_(Dot(e1_, e2_)),
        e2e2_(Dot(e2_, e2_)),
        divisor_(e1e1_ * e2e2_ - e1e2_ * e1e2_) {}

  [[nodiscard]] bool Inside(double X, double Y) const {
    const Edge p{X - corner_.X, Y - corner_.Y};
    const double pe1 = Dot(p, e1_), pe2 = Dot(p, e2_);
    const double u = (pe1 * e2e2_ - e1e2_ * pe2) / divisor_;
    const double v = (e1e1_ * pe2 - pe1 * e1e2_) / divisor_;
    return u >= 0 && v >= 0 && u + v <= 1;
  }

 private:
  MapPoint corner_;
  Edge e1_, e2_;
  double e1e1_, e1e2_, e2e2_, divisor_;
};

std::size_t Cell_At(const TinRaster& raster, double X, double Y) {
  const double column = Round_Half_Even((X - raster.origin_X) / kCellSize);
  const double row = -std::floor((raster.origin_Y - Y) / kCellSize);
  if (!(column >= 0 && column < raster.columns)) {
    Throw_Subscript(To_Int32(column), 0, raster.columns - 1);
  }
  if (!(row >= 0 && row < raster.rows)) Throw_Subscript(To_Int32(row), 0, raster.rows - 1);
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(raster.columns) +
         static_cast<std::size_t>(column);
}

std::uint8_t Grey_Of(double X, double Y, double height) {
  constexpr double kWhite = 255, kWhiteHeight = 500, kGreysAMetre = 1;
  const double grey = Round_Half_Even(kWhite - (kWhiteHeight - height) * kGreysAMetre);
  if (grey >= 0 && grey <= kWhite) return To_Byte(grey);
  throw RunTimeError(Failure::Overflow, "the height " + Plain_Text(height) + " m at " +
                                            Plain_Text(X) + ", " + Plain_Text(Y) +
                                            " is not in 245 to 500 m");
}

void Write_Cell(TinRaster& raster, double X, double Y, double height) {
  const std::size_t cell = Cell_At(raster, X, Y);
  raster.heights[cell] = static_cast<float>(height);
  raster.greys[cell] = Grey_Of(X, Y, height);
  ++raster.cells_written;
}

double Line_Count(double low, double high) { return (high - low) / kCellSize + 1; }

}  // namespace

double MYFUNC_FLOOR(double value) { return std::floor(value); }

TinRaster Make_Tin_Raster(const TinModel& model) {
  constexpr double kMostCells = 1 << 30;
  const double columns = Line_Count(model.TileMinX, model.TileMaxX);
  const double rows = Line_Count(model.TileMinY, model.TileMaxY);
  TinRaster raster;
  raster.origin_X = model.TileMinX;
  raster.origin_Y = model.TileMinY;
  try {
    if (!(columns * rows <= kMostCells)) throw std::bad_alloc();
    raster.columns = static_cast<std::int32_t>(columns);
    raster.rows = static_cast<std::int32_t>(rows);
    const auto cells = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    raster.heights = ZeroedArray<float>(cells);
    raster.greys.resize(cells);
  } catch (const std::bad_alloc&) {
    throw RunTimeError(Failure::OutOfMemory, "a raster of " + Plain_Text(columns) +
                                                 " columns and " + Plain_Text(rows) + " rows");
  }
  return raster;
}

void Rasterize_Triangle(const TinTriangle& t, TinRaster& raster) {
  constexpr double kOffsetX = 0.002, kOffsetY = 0.001;  // metres; required to differ
  const BarycentricTest test(t);
  const double first_X = MYFUNC_FLOOR(t.MinX) - kOffsetX;
  const double first_Y = MYFUNC_FLOOR(t.MinY) - kOffsetY;
  const std::int32_t columns = Loop_Passes(first_X, t.MaxX + 1, kCellSize);
  const std::int32_t rows = Loop_Passes(first_Y, t.MaxY + 1, kCellSize);
  double X = first_X;
  for (std::int32_t column = 0; column < columns; ++column, X += kCellSize) {
    double Y = first_Y;
    for (std::int32_t row = 0; row < rows; ++row, Y += kCellSize) {
      if (test.Inside(X, Y)) Write_Cell(raster, X, Y, Height_In_Triangle(t, X, Y));
    }
  }
}

}  // namespace sylvomex
